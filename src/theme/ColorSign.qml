// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A dot or a bar in a colour of the user's choice. One that would be taken for its ground has an edge.
Rectangle {
    id: sign

    property color tint: Theme.accentViolet
    property color ground: Theme.cardFill

    radius: Math.min(width, height) / 2
    color: tint
    border { width: 1; color: Tint.edge(sign.tint, sign.ground) }
}
