// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// An icon, by its name. It says nothing of its own: what it belongs to has the name.
Text {
    property string name: ""
    property real size: 16

    width: Math.ceil(size)
    height: width
    text: Tint.glyph(name)
    textFormat: Text.PlainText
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    color: Theme.primaryText
    font.family: Theme.iconFamily
    font.pixelSize: Math.round(size)
    Accessible.ignored: true
}
