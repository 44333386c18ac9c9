// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Invoices

/// An invoice in the list.
Item {
    id: row

    required property int index
    required property string number
    required property string client
    required property string caption
    required property string amount
    required property string badge
    required property bool isSelected
    required property string summary
    property real margin: 20
    /// Whether the keyboard acts on this row.
    property bool isCurrent: false

    signal clicked(int modifiers)
    signal menuRequested(real x, real y)

    height: 62
    Accessible.role: Accessible.ListItem
    Accessible.name: summary
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.focused: isCurrent
    Accessible.onPressAction: clicked(Qt.NoModifier)

    Rectangle {
        anchors { fill: parent; leftMargin: row.margin; rightMargin: row.margin }
        radius: Theme.rowRadius
        color: row.isSelected ? Qt.alpha(Theme.accentViolet, Theme.dark ? 0.2 : 0.12) : hover.hovered ? Theme.cardFillHover : Theme.cardFill
        border {
            width: 1
            color: row.isSelected ? Qt.alpha(Theme.accentViolet, row.isCurrent ? 1 : 0.55) : hover.hovered ? Theme.cardBorderStrong : Theme.cardBorder
        }

        Behavior on color { ColorAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
    }

    HoverHandler { id: hover }

    MouseArea {
        anchors { fill: parent; leftMargin: row.margin; rightMargin: row.margin }
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onPressed: mouse => {
            if (mouse.button === Qt.RightButton)
                row.menuRequested(mouse.x + row.margin, mouse.y);
            else
                row.clicked(mouse.modifiers);
        }
    }

    RowLayout {
        anchors { fill: parent; leftMargin: row.margin + 12; rightMargin: row.margin + 12 }
        spacing: 12

        InitialTile {
            size: 34
            text: row.client
            colors: Theme.tileGradient(row.client)
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 3

            RowLayout {
                Layout.fillWidth: true
                spacing: 8

                PlainText {
                    Layout.fillWidth: true
                    text: row.number
                    size: 13.5
                    font.weight: Font.DemiBold
                    Accessible.ignored: true
                }

                PlainText {
                    text: row.amount
                    size: 13.5
                    font.family: Theme.tabularFamily
                    font.weight: Font.DemiBold
                    Accessible.ignored: true
                }
            }

            RowLayout {
                Layout.fillWidth: true
                spacing: 8

                PlainText {
                    Layout.fillWidth: true
                    text: row.caption
                    // A long name leaves the day in sight.
                    elide: Text.ElideMiddle
                    size: Theme.captionSize
                    color: Theme.secondaryText
                    Accessible.ignored: true
                }

                InvoiceBadge {
                    status: row.badge
                    Accessible.ignored: true
                }
            }
        }
    }
}
