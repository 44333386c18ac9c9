// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// A button with a text and, if wanted, an icon before it.
PressButton {
    id: button

    property bool prominent: false
    /// The gradient of a prominent button; without any it is the plain contrast to the ground.
    property var colors: []
    property bool expands: false
    property string iconName: ""

    readonly property bool isColored: prominent && colors.length > 0
    readonly property color foreground: isColored ? "#FFFFFF" : prominent ? Theme.inverseFill : Theme.primaryText

    Layout.fillWidth: expands
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    leftPadding: prominent ? 16 : 13
    rightPadding: leftPadding
    topPadding: prominent ? 8 : 7
    bottomPadding: topPadding
    opacity: !enabled ? 0.45 : looksPressed ? 0.8 : prominent && looksHovered ? 0.9 : 1
    scale: looksPressed ? 0.98 : 1

    contentItem: RowLayout {
        spacing: 0

        Item { Layout.fillWidth: true }

        Icon {
            Layout.rightMargin: 6
            visible: button.iconName.length > 0
            name: button.iconName
            color: button.foreground
        }

        PlainText {
            Layout.fillWidth: true
            Layout.maximumWidth: Math.ceil(implicitWidth)
            text: button.text
            color: button.foreground
            font.weight: Font.Medium
            Accessible.ignored: true
        }

        Item { Layout.fillWidth: true }
    }

    background: Item {
        Rectangle {
            anchors.fill: parent
            visible: !button.isColored
            radius: height / 2
            color: button.prominent ? Theme.inverseText : button.looksHovered ? Theme.cardFillHover : Theme.cardFill
            border { width: button.prominent ? 0 : 1; color: Theme.cardBorderStrong }

            Behavior on color { ColorAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
        }

        GradientFill {
            anchors.fill: parent
            visible: button.isColored
            radius: height / 2
            horizontal: true
            colors: button.colors
            scrim: Tint.scrimOpacity(button.colors)
        }

        FocusRing {
            shows: button.looksFocused
            corner: parent.height / 2
        }
    }

    Behavior on opacity { NumberAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
    Behavior on scale { NumberAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
}
