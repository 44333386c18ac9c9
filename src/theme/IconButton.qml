// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A quiet button that is only an icon, such as "add" in the head of a card.
PressButton {
    id: button

    property real size: 28
    property string iconName: ""
    property color tint: Theme.secondaryText

    implicitWidth: size
    implicitHeight: size
    opacity: !enabled ? 0.35 : looksPressed ? 0.8 : 1

    contentItem: Item {
        Icon {
            anchors.centerIn: parent
            name: button.iconName
            size: Math.round(button.size * 0.62)
            color: button.looksHovered || button.looksFocused ? Theme.primaryText : button.tint
        }
    }

    background: Rectangle {
        radius: Math.round(button.size * 0.28)
        color: button.looksHovered ? Theme.cardFillHover : "transparent"

        FocusRing {
            shows: button.looksFocused
            corner: parent.radius
        }

        Behavior on color { ColorAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
    }
}
