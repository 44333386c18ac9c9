// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Invoices

/// The invoice that is selected.
ScrollPage {
    id: page

    required property InvoiceDetailModel model

    /// Too narrow for three figures of a size beside each other.
    readonly property bool isNarrow: width < 560

    signal exportRequested()
    /// The keyboard goes back to where the invoice was chosen.
    signal leaveRequested()

    function takeKeyboard(reason: int): void {
        actions.takeKeyboard(reason);
    }

    component Title: PlainText {
        Layout.fillWidth: true
        Layout.topMargin: 8
        size: 14
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
    }

    widest: 620
    Accessible.role: Accessible.Grouping
    Accessible.name: "Invoice " + model.facts.number

    Connections {
        target: page.model

        // Another invoice begins at its top.
        function onOpened(): void { page.view.contentY = 0; }
    }

    InvoiceTitle {
        Layout.fillWidth: true
        model: page.model
        onRenamed: page.leaveRequested()
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: 10

        StatCard {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: page.isNarrow ? 130 : 100
            detailLines: 2
            icon: "sum"
            title: "Total"
            value: page.model.facts.total
            detail: page.model.facts.totalCaption
        }

        StatCard {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 100
            detailLines: 2
            icon: "clock-filled"
            colors: Theme.mintGradient
            title: "Hours"
            value: page.model.facts.hours
            detail: page.model.facts.hoursCaption
        }

        StatCard {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 100
            detailLines: 2
            icon: "calendar"
            colors: page.model.facts.isOverdue ? Theme.coralGradient : Theme.skyGradient
            title: "Due"
            value: page.model.facts.dueDate
            detail: page.model.facts.dueCaption
            valueColor: page.model.facts.isOverdue ? Theme.dangerText : Theme.primaryText
        }
    }

    InvoiceActions {
        id: actions

        Layout.fillWidth: true
        model: page.model
        onExportRequested: page.exportRequested()
    }

    PlainText {
        Layout.fillWidth: true
        visible: text.length > 0
        text: page.model.delivery.problem.length > 0 ? page.model.delivery.problem : page.model.facts.problem
        color: Theme.dangerText
        wrapMode: Text.Wrap
        elide: Text.ElideNone
        Accessible.role: Accessible.AlertMessage
    }

    Title {
        visible: preview.visible
        text: "Preview"
    }

    InvoicePreview {
        id: preview

        Layout.fillWidth: true
        Layout.bottomMargin: 12
        visible: page.model.facts.problem.length === 0
        model: page.model.preview
        pageWidth: Math.min(430, width)
    }

    Title { text: "Details" }

    InvoiceDates {
        Layout.fillWidth: true
        model: page.model
    }

    Title { text: "Notes on invoice" }

    InvoiceNotes {
        Layout.fillWidth: true
        model: page.model
    }
}
