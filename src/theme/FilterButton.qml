// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A button of a filter bar, which says what is chosen and opens a list of what else there is, or is on and off.
PressButton {
    id: button

    property string iconName: ""
    /// Narrows what is shown down.
    property bool active: false
    property bool opensList: true

    implicitWidth: Math.min(220, 11 + 16 + 6 + name.implicitWidth + (opensList ? 6 + 14 : 0) + 11)
    implicitHeight: 32
    opacity: !enabled ? 0.45 : looksPressed ? 0.8 : 1

    // qmllint disable deferred-property-id
    contentItem: Item {
        Icon {
            id: icon

            anchors { left: parent.left; leftMargin: 11; verticalCenter: parent.verticalCenter }
            name: button.iconName
            color: button.active ? Theme.accentText : Theme.secondaryText
        }

        PlainText {
            id: name

            anchors {
                left: icon.right; leftMargin: 6
                right: button.opensList ? chevron.left : parent.right
                rightMargin: button.opensList ? 6 : 11
                verticalCenter: parent.verticalCenter
            }
            text: button.text
            size: Theme.calloutSize
            font.weight: Font.Medium
            color: button.active ? Theme.accentText : Theme.primaryText
            Accessible.ignored: true
        }

        Icon {
            id: chevron

            anchors { right: parent.right; rightMargin: 9; verticalCenter: parent.verticalCenter }
            visible: button.opensList
            name: "chevrons-up-down"
            size: 14
            color: Theme.secondaryText
        }
    }

    // qmllint enable deferred-property-id

    background: Rectangle {
        radius: height / 2
        color: button.looksHovered ? Theme.cardFillHover : Theme.cardFill
        border { width: 1; color: button.active ? Theme.accentViolet : Theme.cardBorderStrong }

        FocusRing {
            shows: button.looksFocused
            corner: parent.radius
        }
    }
}
