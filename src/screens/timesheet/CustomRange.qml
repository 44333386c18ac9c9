// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Timesheet

/// The first and the last day of a period of the user's own, and under them what is wrong with what was typed.
Column {
    id: range

    required property TimesheetFilterModel model

    readonly property string problem: model.from.day.problem.length > 0 ? model.from.day.problem : model.to.day.problem

    spacing: 4

    Row {
        id: days

        spacing: 8

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            text: "From"
            color: Theme.secondaryText
        }

        DateField {
            label: "From"
            date: range.model.from
        }

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            text: "–"
            color: Theme.secondaryText
            Accessible.ignored: true
        }

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            text: "To"
            color: Theme.secondaryText
        }

        DateField {
            label: "To"
            date: range.model.to
        }
    }

    PlainText {
        width: days.width
        visible: text.length > 0
        text: range.problem
        size: Theme.calloutSize
        color: Theme.dangerText
        wrapMode: Text.Wrap
    }
}
