// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A tile with the initials of a name.
GradientFill {
    id: tile

    property string text: ""
    property real size: 28

    implicitWidth: size
    implicitHeight: size
    radius: Math.round(size * 0.28)

    PlainText {
        anchors.centerIn: parent
        text: Tint.initials(tile.text)
        color: Tint.inkOn(tile.colors)
        size: tile.size * 0.4
        font.weight: Font.DemiBold
        elide: Text.ElideNone
        Accessible.ignored: true
    }
}
