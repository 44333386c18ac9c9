// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// A project to start with one click.
Basic.AbstractButton {
    id: row

    required property int index
    required property string name
    required property string client
    required property string projectColor

    implicitHeight: 48
    leftPadding: 12
    rightPadding: 12

    Accessible.role: Accessible.Button
    Accessible.name: "Start " + name
    Accessible.onPressAction: clicked()

    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    contentItem: RowLayout {
        spacing: 12

        Rectangle {
            Layout.preferredWidth: 10
            Layout.preferredHeight: 10
            radius: 5
            color: row.projectColor
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 1

            PlainText {
                Layout.fillWidth: true
                text: row.name
                font.weight: Font.Medium
                Accessible.ignored: true
            }

            PlainText {
                Layout.fillWidth: true
                visible: text.length > 0
                text: row.client
                color: Theme.secondaryText
                size: 12
                Accessible.ignored: true
            }
        }

        Text {
            text: "\ue037"
            color: row.hovered || row.visualFocus ? Theme.primaryText : Theme.secondaryText
            font.family: Theme.iconFamily
            font.pixelSize: 20
            Accessible.ignored: true
        }
    }

    background: Rectangle {
        radius: Theme.rowRadius
        color: row.down || row.hovered ? Theme.cardFillHover : Theme.cardFill
        border.width: row.visualFocus ? 2 : 1
        border.color: row.visualFocus ? Theme.focusRing : row.hovered ? Theme.cardBorderStrong : Theme.cardBorder

        Behavior on color { ColorAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
    }
}
