// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A dot that beats with `beat`, a text that changes every second: in the frame that shows the new text, and
/// without a fade, which would draw the window a dozen times more. It stands still where nobody sees it.
ColorSign {
    id: dot

    property string beat: ""
    property bool dimmed: false

    readonly property bool isSeen: visible && Window.visibility !== Window.Hidden && Window.visibility !== Window.Minimized

    onBeatChanged: dimmed = isSeen && !AppAppearance.reducedMotion && !dimmed

    implicitWidth: 8
    implicitHeight: 8
    opacity: dimmed ? 0.45 : 1
}
