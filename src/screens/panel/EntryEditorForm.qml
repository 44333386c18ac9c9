// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Panel

/// The rows of the entry editor.
GridLayout {
    id: form

    required property EntryEditorModel model

    /// To the project while none is chosen, and else to where most changes are made.
    function takeFocus(): void {
        notes.contentY = 0;
        if (!model.projects.isSet)
            project.forceActiveFocus(Qt.TabFocusReason);
        else
            start.time.takeFocus();
    }

    columns: 2
    columnSpacing: 16
    rowSpacing: 12

    FormLabel { text: "Project" }

    SearchPicker {
        id: project

        Layout.fillWidth: true
        label: "Project"
        prompt: "Search projects"
        enabled: !form.model.isLocked
        choice: form.model.projects
    }

    FormLabel { text: "Start" }

    DateTimeFields {
        id: start

        Layout.fillWidth: true
        label: "Start"
        date: form.model.start // qmllint disable
        enabled: !form.model.isLocked
    }

    FormLabel { text: "End" }

    DateTimeFields {
        Layout.fillWidth: true
        visible: !form.model.isRunning
        label: "End"
        date: form.model.end // qmllint disable
        enabled: !form.model.isLocked
    }

    PlainText {
        Layout.fillWidth: true
        Layout.preferredHeight: 32
        visible: form.model.isRunning
        verticalAlignment: Text.AlignVCenter
        text: "Running"
        color: Theme.secondaryText
    }

    FormLabel {
        visible: !form.model.isRunning
        text: "Duration"
    }

    Flow {
        Layout.fillWidth: true
        visible: !form.model.isRunning
        spacing: 6
        Accessible.role: Accessible.Grouping
        Accessible.name: "Duration"

        Repeater {
            model: form.model.chips // qmllint disable

            // The chips don't outlive their form.
            // qmllint disable unqualified
            ChoiceChip {
                required property int index
                required property bool isChosen

                required text
                chosen: isChosen
                enabled: !form.model.isLocked
                onClicked: form.model.chooseDuration(index)
            }
            // qmllint enable unqualified
        }
    }

    FormLabel {
        Layout.alignment: Qt.AlignTop
        text: "Notes"
    }

    ScrollingArea {
        id: notes

        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.minimumHeight: 34
        Layout.preferredHeight: 104
        label: "Notes"
        readOnly: form.model.isLocked
        onSubmitted: form.model.save()

        FormTextLink {
            field: form.model.notes
            input: notes
        }
    }
}
