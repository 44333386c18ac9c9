// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Invoices

/// One of the days of an invoice.
ColumnLayout {
    id: day

    required property InvoiceDatesModel dates
    required property DateTimeInput date
    property string label: ""
    /// Why it can't be changed, where it can't.
    property string lock: ""

    readonly property string problem: date.day.problem

    spacing: 4

    FormLabel { text: day.label }

    DateField {
        Layout.fillWidth: true
        Layout.maximumWidth: 200
        enabled: day.dates.canChange
        label: day.label
        date: day.date
        Accessible.description: enabled ? day.problem : day.lock
        onEditingFinished: day.dates.commit()
        onActiveFocusChanged: if (!activeFocus) day.dates.commit()
    }

    PlainText {
        Layout.fillWidth: true
        visible: text.length > 0
        text: day.problem
        size: Theme.calloutSize
        color: Theme.dangerText
        wrapMode: Text.Wrap
    }
}
