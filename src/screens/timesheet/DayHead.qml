// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Timesheet

/// The head of a day's card.
Item {
    id: head

    required property int index
    required property string title
    required property string detail
    required property string total
    required property string summary
    required property bool isLastOfDay
    property real margin: 24

    signal addRequested(int row)

    height: 52
    Accessible.role: Accessible.Heading
    Accessible.name: summary

    CardSlice {
        anchors { fill: parent; leftMargin: head.margin; rightMargin: head.margin; topMargin: 12 }
        isFirst: true
        isLast: head.isLastOfDay
    }

    PlainText {
        id: title

        anchors { left: parent.left; leftMargin: head.margin + 16; verticalCenter: line.verticalCenter }
        text: head.title
        size: 14
        font.weight: Font.DemiBold
        Accessible.ignored: true
    }

    PlainText {
        anchors { left: title.right; leftMargin: 8; baseline: title.baseline }
        text: head.detail
        size: Theme.calloutSize
        color: Theme.secondaryText
        Accessible.ignored: true
    }

    PlainText {
        anchors { right: add.left; rightMargin: 8; verticalCenter: line.verticalCenter }
        text: head.total
        size: 14
        font.family: Theme.tabularFamily
        font.weight: Font.DemiBold
        Accessible.ignored: true
    }

    IconButton {
        id: add

        anchors { right: parent.right; rightMargin: head.margin + 10; verticalCenter: line.verticalCenter }
        focusPolicy: Qt.NoFocus
        iconName: "plus"
        help: "Add time on this day"
        label: "Add entry on this day"
        onClicked: head.addRequested(head.index)
    }

    Item {
        id: line

        anchors { left: parent.left; right: parent.right; top: parent.top; topMargin: 12; bottom: parent.bottom }
    }
}
