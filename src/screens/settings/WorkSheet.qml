// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Settings

/// How far long work is, while it lasts. Escape and Cancel stop it.
SheetPopup {
    id: sheet

    required property DataExchange exchange

    visible: exchange.isWorking
    onAboutToShow: cancel.forceActiveFocus(Qt.TabFocusReason)
    onAboutToHide: exchange.cancel()
    // It may be over before it has come.
    enter: null

    // qmllint disable deferred-property-id
    contentItem: SheetScaffold {
        sheetWidth: 360
        icon: "hourglass"
        colors: Theme.primaryGradient
        title: sheet.exchange.workTitle
        Accessible.role: Accessible.Dialog
        Accessible.name: sheet.exchange.workTitle
        actions: [
            GlowButton {
                id: cancel

                text: "Cancel"
                onClicked: sheet.exchange.cancel()
            }
        ]

        PlainText {
            Layout.fillWidth: true
            text: sheet.exchange.step.length > 0 ? sheet.exchange.step : "Working…"
            color: Theme.secondaryText
        }

        ProgressTrack {
            Layout.fillWidth: true
            label: sheet.exchange.workTitle
            smallest: height
            fraction: Math.max(0, sheet.exchange.fraction)
            Accessible.description: Math.round(100 * fraction) + "%"
        }
    }
    // qmllint enable deferred-property-id
}
