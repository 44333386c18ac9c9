// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// What a control does, shown beside it after a while.
Basic.ToolTip {
    id: tip

    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height + 4 : 0
    width: Math.min(implicitWidth, 320)
    delay: 600
    padding: 0
    leftPadding: 8
    rightPadding: 8
    topPadding: 5
    bottomPadding: 5
    margins: 8

    contentItem: PlainText {
        text: tip.text
        size: Theme.calloutSize
        wrapMode: Text.Wrap
        maximumLineCount: 3
        Accessible.ignored: true
    }

    background: Rectangle {
        radius: 6
        color: Theme.cardFillHover
        border { width: 1; color: Theme.cardBorderStrong }
    }
}
