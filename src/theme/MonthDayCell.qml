// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A day on the page of a month.
PressButton {
    id: cell

    required property int index
    required property string name
    required property bool isInMonth
    required property bool isToday
    required property bool isChosen
    required property bool isCurrent

    required text
    label: cell.name
    activeFocusOnTab: cell.isCurrent || cell.activeFocus
    focusPolicy: cell.isCurrent || cell.activeFocus ? Qt.StrongFocus : Qt.NoFocus
    checked: cell.isChosen

    contentItem: PlainText {
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        text: cell.text
        font.family: Theme.tabularFamily
        font.weight: cell.isToday || cell.isChosen ? Font.DemiBold : Font.Normal
        color: cell.isChosen ? Theme.inverseFill : cell.isToday ? Theme.accentText : cell.isInMonth ? Theme.primaryText : Theme.tertiaryText
        Accessible.ignored: true
    }

    background: Item {
        Rectangle {
            anchors { fill: parent; margins: 2 }
            radius: Theme.fieldRadius
            color: cell.isChosen ? Theme.inverseText : cell.looksHovered ? Theme.cardBorder : "transparent"
            border { width: cell.isToday && !cell.isChosen ? 1 : 0; color: Theme.accentText }
        }

        Rectangle {
            anchors { fill: parent; margins: 0 }
            visible: cell.looksFocused
            radius: Theme.fieldRadius + 2
            color: "transparent"
            border { width: 2; color: Theme.focusRing }
        }
    }
}
