// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Invoices

/// The lines of the invoice to be, and their sum, on a card.
GlassCard {
    id: preview

    required property NewInvoiceFigures figures
    /// With which all lines fit.
    readonly property real wantedHeight: figures.isEmpty ? 0 : list.implicitHeight + sums.height + 34

    padding: 0

    Item {
        anchors.fill: parent

        ColumnLayout {
            anchors { fill: parent; topMargin: 8; bottomMargin: 12 }
            visible: !preview.figures.isEmpty
            spacing: 0

            NewInvoiceLines {
                id: list

                Layout.fillWidth: true
                Layout.fillHeight: true
                figures: preview.figures
            }

            Hairline {
                Layout.fillWidth: true
                Layout.bottomMargin: 12
            }

            NewInvoiceTotals {
                id: sums

                Layout.fillWidth: true
                Layout.leftMargin: 16
                Layout.rightMargin: 16
                figures: preview.figures
            }
        }

        ColumnLayout {
            anchors { left: parent.left; right: parent.right; margins: 24; verticalCenter: parent.verticalCenter }
            visible: preview.figures.isEmpty
            spacing: 10

            Icon {
                Layout.alignment: Qt.AlignHCenter
                name: "tray"
                size: 26
                color: Theme.tertiaryText
            }

            PlainText {
                Layout.fillWidth: true
                horizontalAlignment: Text.AlignHCenter
                text: "No unbilled, finished entries for this client in this period."
                color: Theme.secondaryText
                wrapMode: Text.Wrap
            }
        }
    }
}
