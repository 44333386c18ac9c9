// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// A row of a list that can be pressed: a mark of a colour, two lines, and what stands at its end.
PressButton {
    id: row

    property string title: ""
    property string subtitle: ""
    /// The colour of the dot before the title; transparent for none.
    property color mark: "transparent"
    property bool selected: false
    default property alias trailing: end.data

    readonly property bool raised: looksHovered || looksPressed || selected

    text: title
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: subtitle.length > 0 ? 52 : 40
    leftPadding: 12
    rightPadding: 12 + (end.implicitWidth > 0 ? end.implicitWidth + 12 : 0)
    opacity: !enabled ? 0.45 : looksPressed ? 0.8 : 1

    contentItem: RowLayout {
        spacing: 12

        ColorSign {
            visible: row.mark.a > 0
            implicitWidth: 10
            implicitHeight: 10
            tint: row.mark
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2

            PlainText {
                Layout.fillWidth: true
                text: row.title
                maximumLineCount: 1
                font.weight: Font.Medium
                Accessible.ignored: true
            }

            PlainText {
                Layout.fillWidth: true
                visible: text.length > 0
                text: row.subtitle
                maximumLineCount: 1
                size: Theme.calloutSize
                color: Theme.secondaryText
                Accessible.ignored: true
            }
        }
    }

    RowLayout {
        id: end

        anchors { right: parent.right; rightMargin: 12; verticalCenter: parent.verticalCenter }
        spacing: 8
    }

    background: Rectangle {
        radius: Theme.rowRadius
        color: row.raised ? Theme.cardFillHover : Theme.cardFill
        border { width: 1; color: row.raised ? Theme.cardBorderStrong : Theme.cardBorder }

        FocusRing {
            shows: row.looksFocused
            corner: Theme.rowRadius
        }

        Behavior on color { ColorAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
    }
}
