// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Tracking

/// The ways out of the panel.
ColumnLayout {
    id: footer

    required property MenuBarPanelModel model

    signal done()

    spacing: 0

    Hairline { Layout.fillWidth: true }

    RowLayout {
        Layout.margins: 8
        spacing: 4

        GlowButton {
            text: "Open Elmworth"
            systemImage: "macwindow"
            onClicked: { footer.model.openElmworth(); footer.done(); }
        }

        Item { Layout.fillWidth: true }

        IconButton {
            systemImage: "gearshape.fill"
            label: "Settings"
            help: "Settings"
            onClicked: { footer.model.openSettings(); footer.done(); }
        }

        IconButton {
            systemImage: "power"
            label: "Quit Elmworth"
            help: "Quit Elmworth (Ctrl+Q)"
            onClicked: footer.model.quit()
        }
    }
}
