// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Invoices

/// The lines that the invoice will have. Where they don't fit, the arrows, Page Up, Page Down, Home and End scroll.
ListView {
    id: list

    required property NewInvoiceFigures figures

    function scrollBy(distance: real): void {
        contentY = Math.max(originY, Math.min(originY + contentHeight - height, contentY + distance));
    }

    implicitHeight: contentHeight
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    activeFocusOnTab: contentHeight > height
    // The list as a whole has the keyboard, and no line of it.
    currentIndex: -1
    keyNavigationEnabled: false
    model: figures.lines // qmllint disable
    Accessible.role: Accessible.List
    Accessible.name: "Preview"
    Basic.ScrollBar.vertical: SlimScrollBar {}

    Keys.onPressed: event => {
        const page = height - 42;
        const moves = {
            [Qt.Key_Up]: -42, [Qt.Key_Down]: 42, [Qt.Key_PageUp]: -page, [Qt.Key_PageDown]: page,
            [Qt.Key_Home]: -contentHeight, [Qt.Key_End]: contentHeight,
        };
        event.accepted = event.key in moves;
        if (event.accepted)
            scrollBy(moves[event.key]);
    }

    FocusRing {
        shows: list.activeFocus
        corner: Theme.fieldRadius
    }

    // The rows don't outlive their list.
    // qmllint disable unqualified
    delegate: Item {
        required property string name
        required property string detail
        required property string amount

        width: ListView.view ? ListView.view.width : 0
        height: 42
        Accessible.role: Accessible.ListItem
        Accessible.name: name + ", " + detail + ", " + amount

        RowLayout {
            anchors { fill: parent; leftMargin: 16; rightMargin: 16 }
            spacing: 16

            ColumnLayout {
                Layout.fillWidth: true
                spacing: 1

                PlainText {
                    Layout.fillWidth: true
                    text: name
                    font.weight: Font.Medium
                    Accessible.ignored: true
                }

                PlainText {
                    Layout.fillWidth: true
                    text: detail
                    size: Theme.captionSize
                    color: Theme.secondaryText
                    font.family: Theme.tabularFamily
                    Accessible.ignored: true
                }
            }

            PlainText {
                text: amount
                font.family: Theme.tabularFamily
                Accessible.ignored: true
            }
        }
    }
    // qmllint enable unqualified
}
