// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Settings

/// The business as invoices show it, and the numbers of the next ones.
ScrollPage {
    id: page

    required property BusinessSettings model

    signal logoRequested()

    margin: 20

    SettingsGroup {
        SettingsRow {
            label: "Logo"
            problem: page.model.logoError

            // As it will stand on paper.
            Rectangle {
                Layout.preferredWidth: logo.implicitWidth + 12
                Layout.preferredHeight: logo.implicitHeight + 8
                visible: page.model.hasLogo
                radius: 6
                color: "#FFFFFF"
                border { width: 1; color: Theme.cardBorderStrong }
                Accessible.role: Accessible.Graphic
                Accessible.name: "Logo"

                LogoThumbnail {
                    id: logo

                    anchors.centerIn: parent
                    model: page.model
                }
            }

            PlainText {
                Layout.fillWidth: true
                text: page.model.isReadingLogo ? "Reading…" : ""
                color: Theme.secondaryText
            }

            GlowButton {
                visible: page.model.hasLogo && !page.model.isReadingLogo
                text: "Remove"
                label: "Remove Logo"
                onClicked: page.model.removeLogo()
            }

            GlowButton {
                text: page.model.hasLogo ? "Change…" : "Choose…"
                label: page.model.hasLogo ? "Change Logo…" : "Choose Logo…"
                help: "PNG, JPEG, HEIC or TIFF"
                onClicked: page.logoRequested()
            }
        }

        SettingsTextRow {
            label: "Business name"
            field: page.model.name
        }

        SettingsTextRow {
            label: "Address"
            field: page.model.address
            mostLines: 5
        }

        SettingsTextRow {
            label: "Email"
            field: page.model.email
        }

        SettingsTextRow {
            label: "Tax ID"
            field: page.model.taxID
        }

        SettingsTextRow {
            label: "Payment instructions"
            field: page.model.paymentInstructions
            mostLines: 6
        }
    }

    SettingsGroup {
        title: "Numbering"

        SettingsTextRow {
            label: "Invoice prefix"
            field: page.model.invoicePrefix
        }

        SettingsTextRow {
            label: "Next number"
            field: page.model.nextNumber
            problem: page.model.numberProblem
            onFinished: page.model.finishNumber()
        }

        SettingsRow {
            ToggleSwitch {
                Layout.fillWidth: true
                text: "Restart numbering each year"
                checked: page.model.restartsYearly
                onToggled: {
                    page.model.restartsYearly = checked;
                    checked = Qt.binding(() => page.model.restartsYearly);
                }
            }
        }

        SettingsRow {
            label: "Next invoice"

            PlainText {
                Layout.fillWidth: true
                text: page.model.nextInvoice
                font.family: Theme.tabularFamily
                color: Theme.secondaryText
                Accessible.name: "Next invoice: " + text
            }
        }
    }
}
