// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Panel

/// The projects to start with one click, and all of them by their names.
ColumnLayout {
    id: section

    required property ProjectSectionModel model

    readonly property bool hasSearch: model.isSearchShown

    function focusSearch(): void {
        search.takeFocus();
    }

    /// Gives the keyboard to the next row from `row` on, in steps of 1 or -1, that can be started; before the first
    /// stands the search. Nothing happens when there is none.
    function focusRow(row: int, step: int): void {
        while (row >= 0 && row < rows.count && !rows.itemAt(row).enabled)
            row += step;
        if (row >= 0 && row < rows.count)
            rows.itemAt(row).forceActiveFocus(Qt.TabFocusReason);
        else if (row < 0 && hasSearch)
            focusSearch();
    }

    spacing: 8

    SectionLabel {
        Layout.fillWidth: true
        title: section.model.title
    }

    SearchPill {
        id: search

        Layout.fillWidth: true
        visible: section.model.isSearchShown
        prompt: "Search all projects"
        text: section.model.search
        onTextChanged: section.model.search = text
        onAccepted: section.model.startFirstFound()
        Keys.onDownPressed: section.focusRow(0, 1)
    }

    ColumnLayout {
        Layout.fillWidth: true
        spacing: 6

        Repeater {
            id: rows

            model: section.model.rows // qmllint disable

            ProjectRow {
                Layout.fillWidth: true
                // The section outlives its rows.
                // qmllint disable unqualified
                onClicked: section.model.start(index)
                Keys.onUpPressed: section.focusRow(index - 1, -1)
                Keys.onDownPressed: section.focusRow(index + 1, 1)
                // qmllint enable unqualified
            }
        }
    }

    PlainText {
        Layout.fillWidth: true
        Layout.topMargin: 8
        Layout.bottomMargin: 8
        visible: section.model.hasNoMatches
        text: "No matching projects"
        horizontalAlignment: Text.AlignHCenter
        color: Theme.secondaryText
    }
}
