// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// How much of a budget is used. Over budget the bar is full.
Item {
    id: bar

    property real fraction: 0
    /// 0 while there is time left, 1 when it runs out, 2 when there was more than allowed.
    property int level: 0
    property string help: ""
    property alias label: track.label

    implicitWidth: track.implicitWidth
    implicitHeight: track.implicitHeight

    ProgressTrack {
        id: track

        anchors.fill: parent
        implicitHeight: 4
        fraction: bar.fraction
        colors: [Theme.primaryGradient, Theme.amberGradient, Theme.coralGradient][bar.level]
        smallest: bar.fraction > 0 ? 4 : 0
    }

    // A line of four pixels is hard to meet.
    HoverHandler {
        id: hover

        margin: 6
    }

    Loader {
        active: hover.hovered

        // The tip doesn't outlive its bar.
        // qmllint disable unqualified
        sourceComponent: HelpTip {
            parent: bar
            text: bar.help
            visible: true
        }
        // qmllint enable unqualified
    }
}
