// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A tile of a gradient with an icon on it.
GradientFill {
    id: tile

    property string icon: ""
    property real size: 24

    implicitWidth: size
    implicitHeight: size
    radius: Math.round(size * 0.28)

    Icon {
        anchors.centerIn: parent
        name: tile.icon
        size: Math.round(tile.size * 0.58)
        color: Tint.inkOn(tile.colors)
    }
}
