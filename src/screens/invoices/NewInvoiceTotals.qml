// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Invoices

/// What the invoice will come to.
ColumnLayout {
    id: totals

    required property NewInvoiceFigures figures

    component Sum: RowLayout {
        id: sum

        property string title: ""
        property string amount: ""

        Layout.fillWidth: true
        Accessible.role: Accessible.StaticText
        Accessible.name: title + ": " + amount

        PlainText {
            Layout.fillWidth: true
            text: sum.title
            color: Theme.secondaryText
            Accessible.ignored: true
        }

        PlainText {
            text: sum.amount
            color: Theme.secondaryText
            font.family: Theme.tabularFamily
            Accessible.ignored: true
        }
    }

    spacing: 4

    Sum {
        visible: totals.figures.hasTax
        title: "Subtotal"
        amount: totals.figures.subtotal
    }

    Sum {
        visible: totals.figures.hasTax
        title: "Tax"
        amount: totals.figures.tax
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: 16
        Accessible.role: Accessible.StaticText
        Accessible.name: "Total: " + total.text

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 1

            PlainText {
                Layout.fillWidth: true
                text: "Total"
                font.weight: Font.DemiBold
                Accessible.ignored: true
            }

            PlainText {
                Layout.fillWidth: true
                text: totals.figures.entriesText
                size: Theme.captionSize
                color: Theme.secondaryText
            }
        }

        PlainText {
            id: total

            text: totals.figures.total
            size: 22
            font { family: Theme.tabularFamily; weight: Font.DemiBold }
            Accessible.ignored: true
        }
    }
}
