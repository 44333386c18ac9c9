// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A figure of a client's card, with what it is of above it.
Column {
    id: figure

    property string title: ""
    property string value: ""

    spacing: 3

    PlainText {
        width: figure.width
        text: figure.title
        size: Theme.captionSize
        color: Theme.secondaryText
        Accessible.ignored: true
    }

    PlainText {
        width: figure.width
        text: figure.value
        size: 15
        fontSizeMode: Text.HorizontalFit
        minimumPixelSize: 9
        font.family: Theme.tabularFamily
        font.weight: Font.Medium
        Accessible.ignored: true
    }
}
