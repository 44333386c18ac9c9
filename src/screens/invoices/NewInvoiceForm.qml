// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Invoices

/// For whom the invoice is, and of which time.
GridLayout {
    id: form

    required property NewInvoiceModel model
    /// What is said of the tax adds so much.
    readonly property real remarkHeight: remark.visible ? remark.height + 4 : 0

    function takeFocus(): void {
        client.forceActiveFocus(Qt.TabFocusReason);
    }

    function submit(event: KeyEvent): void {
        event.accepted = !period.popup.visible;
        if (event.accepted)
            model.save();
    }

    columns: 2
    columnSpacing: 16
    rowSpacing: 8

    FormLabel { text: "Client" }

    SearchPicker {
        id: client

        Layout.fillWidth: true
        label: "Client"
        prompt: "Search clients"
        choice: form.model.clients
    }

    FormLabel { text: "Period" }

    PopupPicker {
        id: period

        Layout.fillWidth: true
        label: "Period"
        model: form.model.presets
        currentIndex: form.model.preset
        onActivated: index => form.model.choosePreset(index)

        // A picker keeps Return for itself, also while its list doesn't show.
        Keys.onReturnPressed: event => form.submit(event)
        Keys.onEnterPressed: event => form.submit(event)
    }

    FormLabel {
        text: form.model.isCustom ? "From" : "Dates"
    }

    PlainText {
        Layout.fillWidth: true
        Layout.preferredHeight: 32
        visible: !form.model.isCustom
        verticalAlignment: Text.AlignVCenter
        text: form.model.dates
        font.family: Theme.tabularFamily
        Accessible.name: "Dates: " + text
    }

    NewInvoiceDays {
        Layout.fillWidth: true
        visible: form.model.isCustom
        model: form.model
    }

    FormLabel { text: "Tax %" }

    RowLayout {
        Layout.fillWidth: true
        spacing: 16

        InputField {
            id: tax

            Layout.preferredWidth: 150
            label: "Tax %"
            placeholderText: "0 or 8.25"
            maximumLength: 64
            invalid: form.model.taxProblem.length > 0
            font.family: Theme.tabularFamily
            Accessible.description: form.model.taxProblem || form.model.taxNote
            onActiveFocusChanged: if (activeFocus && focusReason !== Qt.MouseFocusReason) selectAll()

            FormTextLink {
                field: form.model.tax
                input: tax
            }
        }

        PlainText {
            text: "Rounding"
            color: Theme.secondaryText
            Accessible.ignored: true
        }

        PlainText {
            Layout.fillWidth: true
            text: form.model.rounding
            Accessible.name: "Rounding: " + text
        }
    }

    PlainText {
        id: remark

        Layout.column: 1
        Layout.row: 4
        Layout.fillWidth: true
        Layout.topMargin: -4
        visible: text.length > 0
        text: form.model.taxProblem || form.model.taxNote
        size: Theme.calloutSize
        color: form.model.taxProblem.length > 0 ? Theme.dangerText : Theme.secondaryText
        wrapMode: Text.Wrap
    }
}
