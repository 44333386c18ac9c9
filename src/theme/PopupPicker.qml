// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// A choice of many, in a list that pops up.
Basic.ComboBox {
    id: picker

    property string label: ""
    /// What stands there while nothing is chosen.
    property string placeholder: ""
    property bool looksHovered: hovered
    property bool looksFocused: visualFocus

    implicitWidth: 200
    implicitHeight: 32
    leftPadding: 10
    rightPadding: 28
    opacity: enabled ? 1 : 0.45
    font { family: Theme.textFamily; pixelSize: Theme.bodySize }
    Accessible.role: Accessible.ComboBox
    Accessible.name: label
    Accessible.description: currentIndex < 0 ? placeholder : displayText
    Accessible.onPressAction: if (enabled) popup.open()

    contentItem: PlainText {
        verticalAlignment: Text.AlignVCenter
        text: picker.currentIndex < 0 ? picker.placeholder : picker.displayText
        color: picker.currentIndex < 0 ? Theme.tertiaryText : Theme.primaryText
        Accessible.ignored: true
    }

    indicator: Icon {
        x: picker.width - width - 8
        y: Math.round((picker.height - height) / 2)
        name: "chevrons-up-down"
        color: Theme.secondaryText
    }

    background: Rectangle {
        radius: Theme.fieldRadius
        color: picker.looksHovered ? Theme.cardFillHover : Theme.cardFill
        border { width: 1; color: Theme.cardBorderStrong }

        FocusRing {
            shows: picker.looksFocused
            corner: Theme.fieldRadius
        }
    }

    // The list doesn't outlive its picker.
    // qmllint disable unqualified
    delegate: PopupMenuItem {
        required property int index

        width: ListView.view ? ListView.view.width : implicitWidth
        text: picker.textAt(index)
        checkable: true
        chosen: picker.currentIndex === index
        highlighted: picker.highlightedIndex === index
        Accessible.role: Accessible.ListItem
    }
    // qmllint enable unqualified

    popup: Basic.Popup {
        y: picker.height + 4
        width: Math.max(picker.width, 160)
        height: Math.min(contentItem.implicitHeight + 2 * padding, 320)
        padding: 5
        margins: 8

        contentItem: ListView {
            clip: true
            implicitHeight: contentHeight
            // qmllint disable type
            model: picker.popup.visible ? picker.delegateModel : null
            // qmllint enable type
            currentIndex: picker.highlightedIndex
            highlightMoveDuration: 0
            Basic.ScrollBar.vertical: SlimScrollBar {}
        }

        background: Rectangle {
            radius: Theme.rowRadius
            color: Theme.cardFill
            border { width: 1; color: Theme.cardBorderStrong }

            SoftShadow {
                corner: Theme.rowRadius
                strength: 0.24
            }
        }
    }
}
