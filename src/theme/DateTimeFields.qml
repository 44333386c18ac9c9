// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// A day and a time beside each other, and under them what is wrong with what was typed.
ColumnLayout {
    id: fields

    required property DateTimeInput date
    /// What they are of: "Start" makes the names "Start date" and "Start time".
    property string label: ""
    readonly property alias day: day
    readonly property alias time: time

    readonly property string problem: date.day.problem.length > 0 ? date.day.problem : date.time.problem

    spacing: 4

    RowLayout {
        spacing: 8

        DateField {
            id: day

            label: fields.label + " date"
            date: fields.date
        }

        TimeField {
            id: time

            label: fields.label + " time"
            date: fields.date
        }
    }

    PlainText {
        Layout.fillWidth: true
        visible: text.length > 0
        text: fields.problem
        size: Theme.calloutSize
        color: Theme.dangerText
        wrapMode: Text.Wrap
    }
}
