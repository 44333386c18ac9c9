// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// A line between groups of a menu.
Basic.MenuSeparator {
    padding: 0
    topPadding: 4
    bottomPadding: 4
    leftPadding: 6
    rightPadding: 6
    contentItem: Hairline {
        color: Theme.cardBorderStrong
    }
}
