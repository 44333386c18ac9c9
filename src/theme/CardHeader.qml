// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// The head of a card.
RowLayout {
    id: header

    property string icon: ""
    property var colors: Theme.primaryGradient
    property string title: ""
    property string subtitle: ""

    spacing: 10

    IconTile {
        icon: header.icon
        colors: header.colors
        size: 24
    }

    ColumnLayout {
        Layout.fillWidth: true
        spacing: 2

        PlainText {
            Layout.fillWidth: true
            text: header.title
            size: 14
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }

        PlainText {
            Layout.fillWidth: true
            visible: text.length > 0
            text: header.subtitle
            size: Theme.captionSize
            color: Theme.secondaryText
        }
    }
}
