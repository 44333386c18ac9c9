// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A large picture of an icon on its gradient.
Item {
    id: art

    property string icon: ""
    property var colors: Theme.primaryGradient

    implicitHeight: 196

    GradientFill {
        anchors.fill: parent
        radius: Theme.rowRadius
        opacity: Theme.dark ? 0.16 : 0.14
        colors: art.colors
    }

    Repeater {
        model: [{ size: 176, strength: 0.10 }, { size: 132, strength: 0.16 }]

        // The rings don't outlive their picture.
        // qmllint disable unqualified
        GradientFill {
            required property var modelData

            anchors.centerIn: parent
            width: modelData.size
            height: modelData.size
            radius: modelData.size / 2
            opacity: modelData.strength
            colors: art.colors
        }
        // qmllint enable unqualified
    }

    IconTile {
        anchors.centerIn: parent
        icon: art.icon
        colors: art.colors
        size: 84
    }
}
