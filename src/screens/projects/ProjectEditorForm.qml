// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Projects

/// The rows of the project editor.
GridLayout {
    id: form

    required property ProjectEditorModel model

    readonly property real wordWidth: 88

    function takeFocus(): void {
        name.takeFocus();
    }

    columns: 2
    columnSpacing: 16
    rowSpacing: 12

    FormLabel { text: "Name" }

    FormTextField {
        id: name

        Layout.fillWidth: true
        field: form.model.name
        label: "Name"
    }

    FormLabel { text: "Client" }

    ColumnLayout {
        Layout.fillWidth: true
        spacing: 4

        SearchPicker {
            Layout.fillWidth: true
            label: "Client"
            prompt: "Search clients"
            enabled: form.model.clientLock === ""
            choice: form.model.clients
        }

        PlainText {
            Layout.fillWidth: true
            visible: text.length > 0
            text: form.model.clientLock
            size: Theme.calloutSize
            color: Theme.secondaryText
            wrapMode: Text.Wrap
        }
    }

    FormLabel { text: "Rate" }

    ColumnLayout {
        Layout.fillWidth: true
        spacing: 8

        ToggleSwitch {
            Layout.fillWidth: true
            Layout.preferredHeight: 32
            text: "Override client rate"
            checked: form.model.overridesRate
            onToggled: form.model.overridesRate = checked
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 12

            FormLabel {
                Layout.preferredWidth: form.wordWidth
                text: "Hourly rate"
            }

            FormTextField {
                Layout.fillWidth: true
                visible: form.model.overridesRate
                field: form.model.rate
                label: "Hourly rate"
                prompt: "120 or 120.50"
                problem: form.model.rateProblem
            }

            PlainText {
                Layout.fillWidth: true
                Layout.preferredHeight: 32
                visible: !form.model.overridesRate
                verticalAlignment: Text.AlignVCenter
                text: form.model.clientRate
                font.family: Theme.tabularFamily
                Accessible.name: "Hourly rate " + text
            }
        }
    }

    FormLabel { text: "Budget" }

    RowLayout {
        Layout.fillWidth: true
        spacing: 12

        FormLabel {
            Layout.preferredWidth: form.wordWidth
            text: "Hours budget"
        }

        FormTextField {
            Layout.fillWidth: true
            field: form.model.budget
            label: "Hours budget"
            prompt: "Optional, e.g. 40"
            problem: form.model.budgetProblem
        }
    }

    FormLabel { text: "Color" }

    ColorSwatches {
        Layout.fillWidth: true
        Layout.preferredHeight: 32
        palette: form.model.palette
        chosen: form.model.colorRow
        onPicked: row => form.model.chooseColor(row)
    }

    FormLabel {
        visible: form.model.isExisting
        text: ""
    }

    ToggleSwitch {
        Layout.fillWidth: true
        Layout.preferredHeight: 32
        visible: form.model.isExisting
        text: "Archived"
        checked: form.model.isArchived
        onToggled: form.model.isArchived = checked
    }
}
