// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Main

/// What runs, and the recent projects to start with one press.
ScrollPage {
    id: section

    required property RunningEntryModel running
    required property QuickStartModel quickStart

    signal stopRequested()

    widest: 720

    PageHeader {
        Layout.fillWidth: true
        title: "Timesheet"
        subtitle: "Today " + section.quickStart.today
    }

    RunningCard {
        Layout.fillWidth: true
        visible: section.running.isRunning
        entry: section.running
        onStopRequested: section.stopRequested()
    }

    SectionLabel {
        Layout.fillWidth: true
        Layout.topMargin: 8
        visible: projectList.count > 0
        title: section.quickStart.sectionTitle
    }

    ColumnLayout {
        Layout.fillWidth: true
        spacing: 8

        Repeater {
            id: projectList

            model: section.quickStart.projects

            ProjectRow {
                Layout.fillWidth: true
                // The section outlives its rows.
                // qmllint disable unqualified
                onClicked: section.quickStart.start(index)
                // qmllint enable unqualified
            }
        }
    }

    EmptyProjects {
        Layout.fillWidth: true
        visible: !section.quickStart.hasProjects && !section.running.isRunning
    }
}
