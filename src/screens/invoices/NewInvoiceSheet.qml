// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Invoices

/// Makes an invoice of unbilled time, and shows before what it will come to. Return creates it wherever the focus is.
FormSheet {
    id: sheet

    required property NewInvoiceModel model

    form: model
    icon: "document"
    sheetWidth: 520
    saveText: "Create Invoice"
    // The preview gives way to it.
    keepsMessageLine: false
    onEntered: fields.takeFocus()

    NewInvoiceForm {
        id: fields

        Layout.fillWidth: true
        model: sheet.model
    }

    RowLayout {
        Layout.fillWidth: true
        visible: sheet.model.lacksBusinessName
        spacing: 8

        Icon {
            name: "warning"
            color: Theme.warningText
        }

        PlainText {
            Layout.fillWidth: true
            // Two lines of about the same length.
            Layout.maximumWidth: 280
            text: "Your business name is empty, so the invoice header will be blank."
            size: Theme.calloutSize
            color: Theme.warningText
            wrapMode: Text.Wrap
        }

        Item { Layout.fillWidth: true }

        LinkButton {
            visible: sheet.model.canOpenSettings
            text: "Open Settings"
            onClicked: sheet.model.settingsRequested()
        }
    }

    PlainText {
        Layout.fillWidth: true
        Layout.topMargin: 4
        text: "Preview"
        size: Theme.calloutSize
        color: Theme.secondaryText
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
    }

    NewInvoicePreview {
        Layout.fillWidth: true
        Layout.fillHeight: true
        // The sheet keeps its size while somebody chooses and types, as far as the lines let it.
        Layout.preferredHeight: Math.max(210, Math.min(wantedHeight, 320)) - fields.remarkHeight
        Layout.minimumHeight: 96
        figures: sheet.model.figures
    }
}
