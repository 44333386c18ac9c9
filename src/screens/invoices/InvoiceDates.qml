// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Invoices

/// The days of an invoice, and what its pages list.
GlassCard {
    id: card

    required property InvoiceDetailModel model

    readonly property string lock: "Dates are locked once an invoice is sent"

    component Day: ColumnLayout {
        id: day

        required property DateTimeInput date
        property string label: ""
        readonly property string problem: date.day.problem

        Layout.fillWidth: true
        spacing: 4

        FormLabel { text: day.label }

        DateField {
            Layout.fillWidth: true
            Layout.maximumWidth: 200
            enabled: card.model.dates.canChange
            label: day.label
            date: day.date
            Accessible.description: enabled ? day.problem : card.lock
            onEditingFinished: card.model.dates.commit()
            onActiveFocusChanged: if (!activeFocus) card.model.dates.commit()
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

    ColumnLayout {
        anchors { left: parent.left; right: parent.right; top: parent.top }
        spacing: 14

        RowLayout {
            Layout.fillWidth: true
            spacing: 16

            Day {
                label: "Issued"
                date: card.model.dates.issued
            }

            Day {
                label: "Due"
                date: card.model.dates.due
            }
        }

        RowLayout {
            visible: !card.model.dates.canChange
            spacing: 6

            Icon {
                name: "lock"
                size: 13
                color: Theme.secondaryText
            }

            PlainText {
                Layout.fillWidth: true
                text: card.lock
                size: Theme.calloutSize
                color: Theme.secondaryText
            }
        }

        Hairline { Layout.fillWidth: true }

        ToggleSwitch {
            Layout.fillWidth: true
            text: "List individual entries on the PDF"
            checked: card.model.facts.showsEntries
            onToggled: {
                card.model.setShowsEntries(checked);
                checked = Qt.binding(() => card.model.facts.showsEntries);
            }
        }
    }
}
