// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Panel

/// Says what was done, and offers to take it back, for a moment.
Notice {
    id: notice

    required property HistoryModel history

    text: history.notice
    actionText: history.noticeOffersUndo && history.canUndo ? "Undo" : ""
    actionHelp: "Ctrl+Z"
    onActed: history.undo()
    onDismissed: history.dismissNotice()
}
