// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// How much of something is used up.
Rectangle {
    id: track

    /// From 0 to 1; more fills the whole width.
    property real fraction: 0
    property var colors: Theme.primaryGradient
    property real smallest: 0
    property string label: ""

    implicitWidth: 120
    implicitHeight: 4
    radius: height / 2
    color: Theme.cardBorderStrong
    Accessible.role: Accessible.ProgressBar
    Accessible.name: label

    GradientFill {
        width: Math.min(track.width, Math.max(track.smallest, track.width * Math.max(0, track.fraction)))
        height: track.height
        radius: track.radius
        horizontal: true
        colors: track.colors
    }
}
