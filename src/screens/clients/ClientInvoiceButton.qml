// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// The way from a client's card to an invoice of what is unbilled. The keyboard finds it in the card's menu.
PressButton {
    id: button

    implicitHeight: 32
    leftPadding: 11
    rightPadding: 11
    focusPolicy: Qt.NoFocus
    help: "Create an invoice for this client's unbilled time"
    opacity: looksPressed ? 0.8 : 1

    contentItem: RowLayout {
        spacing: 7

        Icon {
            name: "document"
            color: Theme.accentText
        }

        PlainText {
            Layout.fillWidth: true
            text: button.text
            color: Theme.accentText
            font.family: Theme.tabularFamily
            font.weight: Font.Medium
            Accessible.ignored: true
        }

        Icon {
            name: "arrow-right"
            color: Theme.accentText
        }
    }

    background: Rectangle {
        radius: Theme.rowRadius
        color: Qt.alpha(Theme.accentViolet, button.looksHovered ? 0.22 : 0.13)

        Behavior on color { ColorAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
    }
}
