// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Invoices

/// The first and the last day of a custom period, and under them what is wrong with what was typed.
ColumnLayout {
    id: days

    required property NewInvoiceModel model

    readonly property string problem: model.from.day.problem || model.through.day.problem

    spacing: 4

    RowLayout {
        Layout.fillWidth: true
        spacing: 16

        DateField {
            Layout.fillWidth: true
            label: "From"
            date: days.model.from // qmllint disable
        }

        PlainText {
            text: "Through"
            color: Theme.secondaryText
            Accessible.ignored: true
        }

        DateField {
            Layout.fillWidth: true
            label: "Through"
            date: days.model.through // qmllint disable
        }
    }

    PlainText {
        Layout.fillWidth: true
        visible: text.length > 0
        text: days.problem
        size: Theme.calloutSize
        color: Theme.dangerText
        wrapMode: Text.Wrap
    }
}
