// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Timesheet

/// Says what was done, and offers to take it back, for a moment.
Notice {
    id: notice

    required property EntryCommandsModel commands

    text: commands.notice
    actionText: commands.noticeOffersUndo && commands.canUndo ? "Undo" : ""
    actionHelp: "Ctrl+Z"
    onActed: commands.undo()
    onDismissed: commands.dismissNotice()
}
