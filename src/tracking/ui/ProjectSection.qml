// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Tracking

/// The projects to start with one click, and all of them by their names.
ColumnLayout {
    id: section

    required property ProjectSectionModel model

    readonly property bool hasSearch: model.isSearchShown

    function focusSearch(): void {
        search.forceActiveFocus();
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
    }

    ColumnLayout {
        Layout.fillWidth: true
        spacing: 6

        Repeater {
            model: section.model.rows // qmllint disable

            ProjectRow {
                Layout.fillWidth: true
                // The section outlives its rows.
                // qmllint disable unqualified
                onClicked: section.model.start(index)
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
