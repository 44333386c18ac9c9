// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A tile with an icon in a colour of its own.
Rectangle {
    id: badge

    property string icon: ""
    property color tint: Theme.primaryText
    property real size: 28

    implicitWidth: size
    implicitHeight: size
    radius: Math.round(size * 0.28)
    color: Theme.cardFillHover
    border { width: 1; color: Theme.cardBorderStrong }

    Icon {
        anchors.centerIn: parent
        name: badge.icon
        size: Math.round(badge.size * 0.56)
        color: Tint.edge(badge.tint, Theme.cardFillHover)
    }
}
