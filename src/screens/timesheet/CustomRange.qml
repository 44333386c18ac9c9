// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Timesheet

/// The first and the last day of a period of the user's own.
Row {
    id: range

    required property TimesheetFilterModel model

    spacing: 8

    DateField {
        label: "From"
        date: range.model.from
    }

    PlainText {
        anchors.verticalCenter: parent.verticalCenter
        text: "–"
        Accessible.ignored: true
    }

    DateField {
        label: "To"
        date: range.model.to
    }
}
