// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Panel

/// The ways out of the panel.
ColumnLayout {
    id: footer

    required property PanelModel model

    signal done()

    spacing: 0

    Hairline { Layout.fillWidth: true }

    RowLayout {
        Layout.margins: 8
        spacing: 4

        GlowButton {
            text: "Open Elmworth"
            iconName: "window"
            onClicked: { footer.model.openElmworth(); footer.done(); }
        }

        Item { Layout.fillWidth: true }

        IconButton {
            iconName: "gear"
            label: "Settings"
            help: "Settings"
            onClicked: { footer.model.openSettings(); footer.done(); }
        }

        IconButton {
            iconName: "power"
            label: "Quit Elmworth"
            help: "Quit Elmworth (Ctrl+Q)"
            onClicked: footer.model.quit()
        }
    }
}
