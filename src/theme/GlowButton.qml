// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// A button with a text and, if wanted, an icon before it.
Basic.Button {
    id: button

    property bool prominent: false
    property string glyph: ""

    readonly property color foreground: prominent ? Theme.inverseFill : Theme.primaryText

    leftPadding: prominent ? 16 : 13
    rightPadding: leftPadding
    topPadding: prominent ? 8 : 7
    bottomPadding: topPadding
    opacity: !enabled ? 0.45 : down ? 0.8 : prominent && hovered ? 0.9 : 1
    scale: down ? 0.98 : 1

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: clicked()

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: Row {
        spacing: 6

        Text {
            visible: button.glyph.length > 0
            anchors.verticalCenter: parent.verticalCenter
            text: button.glyph
            color: button.foreground
            font.family: Theme.iconFamily
            font.pixelSize: 16
            Accessible.ignored: true
        }

        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: button.text
            textFormat: Text.PlainText
            color: button.foreground
            font.family: Theme.textFamily
            font.pixelSize: 13
            font.weight: Font.Medium
            Accessible.ignored: true
        }
    }

    background: Rectangle {
        radius: height / 2
        color: button.prominent ? Theme.inverseText : button.hovered ? Theme.cardFillHover : Theme.cardFill
        border.width: button.visualFocus ? 2 : button.prominent ? 0 : 1
        border.color: button.visualFocus ? Theme.focusRing : Theme.cardBorderStrong

        Behavior on color { ColorAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
    }

    Behavior on opacity { NumberAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
    Behavior on scale { NumberAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
}
