// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// The head of a screen, with what can be done there at its trailing end.
RowLayout {
    id: header

    property string title: ""
    property string subtitle: ""
    default property alias actions: trailing.data

    spacing: 12

    ColumnLayout {
        Layout.fillWidth: true
        spacing: 2

        PlainText {
            Layout.fillWidth: true
            text: header.title
            size: 28
            font.weight: Font.Medium
            Accessible.role: Accessible.Heading
        }

        PlainText {
            Layout.fillWidth: true
            visible: text.length > 0
            text: header.subtitle
            size: Theme.calloutSize
            color: Theme.secondaryText
        }
    }

    RowLayout {
        id: trailing

        spacing: 8
    }
}
