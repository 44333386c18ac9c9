// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Qt.labs.qmlmodels
import Elmworth.Timesheet

/// Which lines a timesheet has: the head of a day, and an entry. Lines that wait to be used again are hidden also
/// from assistive technology.
DelegateChooser {
    id: lines

    required property TimesheetList list

    role: "kind"

    DelegateChoice {
        roleValue: "head"

        DayHead {
            width: lines.list.width
            ListView.onPooled: visible = false
            ListView.onReused: visible = true
            onAddRequested: row => lines.list.timesheet.addOnDay(row)
        }
    }

    DelegateChoice {
        roleValue: "entry"

        EntryRow {
            id: line

            width: lines.list.width
            ListView.onPooled: visible = false
            ListView.onReused: visible = true
            isCurrent: lines.list.hasKeyboard && index >= 0 && lines.list.selection.currentRow === index
            hasMenu: lines.list.menuLine === line
            billedHelp: row => lines.list.timesheet.billedHelp(row)
            onClicked: (row, modifiers) => lines.list.click(row, modifiers)
            onDoubleClicked: row => lines.list.timesheet.edit(row)
            onMenuRequested: (row, x, y) => lines.list.menuRequested(row, line, x, y)
            onContinueRequested: row => lines.list.timesheet.continueEntry(row)
        }
    }
}
