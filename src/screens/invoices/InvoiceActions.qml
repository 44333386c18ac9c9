// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Invoices

/// What is done with an invoice most of the time.
RowLayout {
    id: actions

    required property InvoiceDetailModel model

    signal exportRequested()

    function takeKeyboard(reason: int): void {
        exporting.forceActiveFocus(reason);
    }

    spacing: 8

    GlowButton {
        id: exporting

        text: "Export PDF…"
        help: "Export PDF (Ctrl+E)"
        iconName: "document-down"
        prominent: true
        onClicked: actions.exportRequested()
    }

    GlowButton {
        visible: text.length > 0
        text: actions.model.facts.nextStep
        iconName: actions.model.facts.isDraft ? "paper-plane" : "check-circle-filled"
        onClicked: {
            actions.model.takeNextStep();
            // What doesn't show can't keep the keyboard.
            if (!visible)
                actions.takeKeyboard(Qt.OtherFocusReason);
        }
    }

    RowLayout {
        visible: actions.model.delivery.isCopied
        spacing: 4

        Icon {
            name: "check"
            size: 14
            color: Theme.successText
        }

        PlainText {
            text: "Email copied"
            size: Theme.calloutSize
            color: Theme.successText
            Accessible.role: Accessible.AlertMessage
        }
    }

    Item { Layout.fillWidth: true }

    IconButton {
        id: more

        size: 32
        iconName: "ellipsis"
        label: "More actions"
        help: "More actions"
        onClicked: (menu.make() as InvoiceMenu).popup(more, more.width - (menu.item as InvoiceMenu).width, more.height + 4)
    }

    OnDemand {
        id: menu

        // Not a place in the row.
        visible: false

        // What is made on demand doesn't outlive its row.
        // qmllint disable unqualified
        sourceComponent: InvoiceMenu {
            parent: more
            model: actions.model
        }
        // qmllint enable unqualified
    }
}
