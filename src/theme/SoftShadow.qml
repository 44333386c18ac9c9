// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick

/// A shadow below its parent: layers that add up to a soft edge, which every graphics system can draw.
Item {
    id: shadow

    property real corner: 0
    property real strength: 0.12
    property int blur: 12
    property int offset: 4

    readonly property int layers: Math.ceil(blur / 2)

    anchors.fill: parent
    z: -1

    Repeater {
        // Most shadows belong to what has not been opened.
        model: shadow.visible ? shadow.layers : 0

        // The layers don't outlive their shadow.
        // qmllint disable unqualified
        Rectangle {
            required property int index
            readonly property real spread: shadow.blur * (1 - 2 * index / shadow.layers)
            /// The inner layers are the stronger ones; all add up to `strength`.
            readonly property real share: 2 * (index + 1) / (shadow.layers * (shadow.layers + 1))

            x: -spread
            y: shadow.offset - spread
            width: shadow.width + 2 * spread
            height: shadow.height + 2 * spread
            radius: Math.max(0, shadow.corner + spread)
            color: Qt.rgba(0, 0, 0, shadow.strength * share)
        }
        // qmllint enable unqualified
    }
}
