// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Projects

/// The clients and their projects. All lines have the same height, so that the place of each is known however many
/// there are.
KeyedList {
    id: list

    required property ProjectsModel projects

    /// Brings a line into view, with the head above it.
    function reveal(row: int): void {
        positionViewAtIndex(Math.max(0, row - 1), ListView.Contain);
        positionViewAtIndex(row, ListView.Contain);
    }

    // The linter can't find the base of DelegateChooser wherever its type is named.
    delegate: Qt.createComponent("ProjectLines.qml").createObject(list, { list: list }) // qmllint disable
    model: projects.rows // qmllint disable
    selection: projects.selection
    label: "Project list"
    rowHeight: 72
    clip: true
    Accessible.name: "Projects by client"

    onActivated: event => {
        event.accepted = selection.currentRow >= 0;
        projects.edit(selection.currentRow);
    }
    onToggled: event => {
        event.accepted = selection.currentRow >= 0;
        projects.toggleTimer(selection.currentRow);
    }
    onDeleteRequested: projects.askToDelete(selection.currentRow)

    // What stands at the end doesn't outlive its list.
    footer: Item { height: 16 }
}
