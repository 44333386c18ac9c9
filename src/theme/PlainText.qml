// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// Text as it is, never markup, that tells assistive technology when it changes.
Text {
    /// In pixels, of which letters have whole ones only.
    property real size: Theme.bodySize

    textFormat: Text.PlainText
    elide: Text.ElideRight
    // A name in a right-to-left script stays in line with the others.
    horizontalAlignment: Text.AlignLeft
    color: Theme.primaryText
    font.family: Theme.textFamily
    font.pixelSize: Math.round(size)
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
