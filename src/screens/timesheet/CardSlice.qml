// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// The part of a card that lies behind one line of it: the head has the card's upper corners, the last line the
/// lower ones.
Item {
    id: slice

    property bool isFirst: false
    property bool isLast: false

    clip: true

    Rectangle {
        anchors {
            fill: parent
            topMargin: slice.isFirst ? 0 : -2 * Theme.cardRadius
            bottomMargin: slice.isLast ? 0 : -2 * Theme.cardRadius
        }
        radius: Theme.cardRadius
        color: Theme.cardFill
        border { width: 1; color: Theme.cardBorder }
    }
}
