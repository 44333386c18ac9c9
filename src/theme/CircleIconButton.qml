// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A round button with an icon.
PressButton {
    id: button

    property var colors: Theme.primaryGradient
    property real size: 28
    property string iconName: ""

    implicitWidth: size
    implicitHeight: size
    opacity: !enabled ? 0.35 : looksPressed ? 0.8 : looksHovered ? 0.9 : 1
    scale: looksPressed ? 0.94 : 1

    contentItem: Item {
        Icon {
            anchors.centerIn: parent
            name: button.iconName
            size: Math.round(button.size * 0.56)
            color: Tint.inkOn(button.colors)
        }
    }

    background: GradientFill {
        radius: height / 2
        colors: button.colors

        FocusRing {
            shows: button.looksFocused
            corner: parent.height / 2
        }
    }

    Behavior on opacity { NumberAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
    Behavior on scale { NumberAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
}
