// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// A sum of invoices, which has an amount for each currency.
GlassCard {
    id: card

    property string icon: ""
    property string title: ""
    property string value: ""
    property string note: ""
    property bool warns: false

    readonly property color tint: warns ? Theme.dangerText : Theme.primaryText

    padding: 14
    Accessible.role: Accessible.Grouping
    Accessible.name: title

    ColumnLayout {
        anchors { left: parent.left; right: parent.right; top: parent.top }
        spacing: 6

        RowLayout {
            Layout.fillWidth: true
            spacing: 6

            Icon {
                name: card.icon
                size: 14
                color: card.warns ? card.tint : Theme.secondaryText
            }

            PlainText {
                Layout.fillWidth: true
                text: card.title
                size: Theme.captionSize
                color: Theme.secondaryText
                font.weight: Font.Medium
            }
        }

        PlainText {
            id: sum

            Layout.fillWidth: true
            text: room.advanceWidth <= width ? card.value : card.value.split(" · ").join("\n")
            size: 17
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 11
            color: card.tint
            wrapMode: Text.WordWrap
            elide: Text.ElideRight
            maximumLineCount: 4
            font.family: Theme.tabularFamily
            font.weight: Font.DemiBold
            Accessible.name: card.value

            // Each currency has a line of its own where they don't fit beside each other.
            TextMetrics {
                id: room

                font: sum.font
                text: card.value
            }
        }

        PlainText {
            Layout.fillWidth: true
            visible: text.length > 0
            text: card.note
            size: Theme.captionSize
            color: Theme.warningText
            wrapMode: Text.Wrap
        }
    }
}
