// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// The outline round what the keyboard acts on. It lies round its parent.
Rectangle {
    property bool shows: false
    property real corner: Theme.rowRadius

    anchors { fill: parent; margins: -3 }
    visible: shows
    radius: corner + 3
    color: "transparent"
    border { width: 2; color: Theme.focusRing }
}
