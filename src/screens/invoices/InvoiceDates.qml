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

    ColumnLayout {
        anchors { left: parent.left; right: parent.right; top: parent.top }
        spacing: 14

        RowLayout {
            Layout.fillWidth: true
            spacing: 16

            InvoiceDay {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                Layout.alignment: Qt.AlignTop
                label: "Issued"
                lock: card.lock
                dates: card.model.dates
                date: card.model.dates.issued
            }

            InvoiceDay {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                Layout.alignment: Qt.AlignTop
                label: "Due"
                lock: card.lock
                dates: card.model.dates
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
