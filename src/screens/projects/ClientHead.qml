// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// The head of a client's projects.
Item {
    id: head

    required property string title
    required property string rate
    required property string summary
    property real margin: 24
    /// What the lines of projects keep free behind the rate.
    property real end: 98

    height: 72
    Accessible.role: Accessible.Heading
    Accessible.name: summary

    InitialTile {
        id: tile

        anchors { left: parent.left; leftMargin: head.margin; bottom: parent.bottom; bottomMargin: 10 }
        text: head.title
        colors: Theme.tileGradient(head.title)
        size: 28
    }

    PlainText {
        anchors { left: tile.right; leftMargin: 10; right: rate.left; rightMargin: 12; verticalCenter: tile.verticalCenter }
        text: head.title
        size: 14
        font.weight: Font.DemiBold
        Accessible.ignored: true
    }

    PlainText {
        id: rate

        anchors { right: parent.right; rightMargin: head.margin + head.end; verticalCenter: tile.verticalCenter }
        text: head.rate
        size: Theme.calloutSize
        font.family: Theme.tabularFamily
        color: Theme.secondaryText
        Accessible.ignored: true
    }
}
