// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Qt.labs.qmlmodels
import Elmworth.Projects

/// Which lines the list of projects has: the head of a client, and a project. Lines that wait to be used again are
/// hidden also from assistive technology.
DelegateChooser {
    id: lines

    required property ProjectsList list

    role: "kind"

    DelegateChoice {
        roleValue: "head"

        ClientHead {
            width: lines.list.width
            ListView.onPooled: visible = false
            ListView.onReused: visible = true
        }
    }

    DelegateChoice {
        roleValue: "project"

        ProjectRow {
            id: line

            width: lines.list.width
            ListView.onPooled: visible = false
            ListView.onReused: visible = true
            isSelected: index >= 0 && lines.list.selection.currentRow === index
            isCurrent: isSelected && lines.list.hasKeyboard
            onClicked: (row, modifiers) => lines.list.click(row, modifiers)
            onDoubleClicked: row => lines.list.projects.edit(row)
            onMenuRequested: (row, x, y) => lines.list.menuRequested(row, line, x, y)
            onStartRequested: row => lines.list.projects.start(row)
        }
    }
}
