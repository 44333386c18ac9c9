// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Settings

/// What new invoices begin with.
ScrollPage {
    id: page

    required property InvoiceSettings model

    margin: 20

    SettingsGroup {
        SettingsRow {
            label: "Paper size"

            Item { Layout.fillWidth: true }

            PopupPicker {
                label: "Paper size"
                model: ["Letter", "A4"]
                currentIndex: page.model.paper
                onActivated: index => {
                    page.model.paper = index;
                    currentIndex = Qt.binding(() => page.model.paper);
                }
            }
        }

        SettingsRow {
            label: "Round each entry up to"

            Item { Layout.fillWidth: true }

            SegmentedPicker {
                label: "Round each entry up to"
                options: ["1 min", "6 min", "15 min"]
                currentIndex: page.model.rounding
                onChosen: index => {
                    page.model.rounding = index;
                    currentIndex = Qt.binding(() => page.model.rounding);
                }
            }
        }

        SettingsRow {
            label: page.model.dueText
            labelWidth: 240

            Item { Layout.fillWidth: true }

            ValueStepper {
                label: page.model.dueText
                from: 0
                to: page.model.mostDueDays
                value: page.model.dueDays
                onValueModified: {
                    page.model.dueDays = value;
                    value = Qt.binding(() => page.model.dueDays);
                }
            }
        }

        SettingsTextRow {
            label: "Tax name"
            prompt: "Tax, VAT, GST…"
            field: page.model.taxName
        }

        SettingsTextRow {
            label: "Default tax %"
            prompt: "0 or 8.25"
            field: page.model.tax
        }
    }

    PlainText {
        Layout.fillWidth: true
        Layout.leftMargin: 14
        Layout.rightMargin: 14
        text: "These are the defaults of new invoices. A client's own terms come first."
        size: Theme.calloutSize
        color: Theme.secondaryText
        wrapMode: Text.Wrap
    }
}
