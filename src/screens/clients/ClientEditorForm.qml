// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Clients

/// The rows of the client editor.
GridLayout {
    id: form

    required property ClientEditorModel model

    function takeFocus(): void {
        address.contentY = 0;
        name.takeFocus();
    }

    columns: 2
    columnSpacing: 16
    rowSpacing: 8

    FormLabel { text: "Name" }

    FormTextField {
        id: name

        Layout.fillWidth: true
        field: form.model.name // qmllint disable
        label: "Name"
    }

    FormLabel { text: "Email" }

    FormTextField {
        Layout.fillWidth: true
        field: form.model.email // qmllint disable
        label: "Email"
    }

    FormLabel { text: "Address" }

    // Three lines, and up to five as they are filled; fewer where the window is low.
    ScrollingArea {
        id: address

        readonly property real line: Math.ceil(area.cursorRectangle.height)
        readonly property real borders: area.topPadding + area.bottomPadding
        readonly property real filled: Math.ceil(area.contentHeight)

        Layout.fillWidth: true
        Layout.fillHeight: true
        Layout.minimumHeight: line + borders
        Layout.preferredHeight: Math.max(3 * line, Math.min(5 * line, filled)) + borders
        Layout.maximumHeight: Layout.preferredHeight
        label: "Address"
        onSubmitted: form.model.save()

        FormTextLink {
            field: form.model.address
            input: address
        }
    }

    SectionLabel {
        Layout.columnSpan: 2
        Layout.topMargin: 4
        title: "Billing"
    }

    FormLabel { text: "Currency" }

    SearchPicker {
        Layout.fillWidth: true
        label: "Currency"
        prompt: "Search currencies"
        choice: form.model.currencies
    }

    FormLabel { text: "Hourly rate" }

    FormTextField {
        Layout.fillWidth: true
        field: form.model.rate // qmllint disable
        label: "Hourly rate"
        prompt: "120 or 120.50"
        problem: form.model.rateProblem
    }

    SectionLabel {
        Layout.columnSpan: 2
        Layout.topMargin: 4
        title: "Terms"
    }

    ToggleSwitch {
        Layout.columnSpan: 2
        Layout.fillWidth: true
        text: "Custom terms for this client"
        checked: form.model.hasOwnTerms
        onToggled: {
            form.model.hasOwnTerms = checked;
            checked = Qt.binding(() => form.model.hasOwnTerms);
        }
    }

    ClientTerms {
        Layout.columnSpan: 2
        Layout.fillWidth: true
        model: form.model
    }
}
