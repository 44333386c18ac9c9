// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Invoices

/// What else can be done with the invoice that is selected.
PopupMenu {
    id: menu

    required property InvoiceDetailModel model
    /// With what the row of actions has as buttons.
    property bool offersNextStep: false

    property bool renames: false

    signal exportRequested()

    // A menu that closes gives the focus back, which would end the renaming.
    onClosed: {
        if (renames)
            Qt.callLater(model.beginRenaming); // qmllint disable
        renames = false;
    }

    PopupMenuItem {
        visible: menu.offersNextStep
        // The arrows go past what is hidden only where it is disabled.
        enabled: visible
        height: visible ? implicitHeight : 0
        text: "Export PDF…"
        iconName: "document-down"
        hint: "Ctrl+E"
        onTriggered: menu.exportRequested()
    }

    PopupMenuItem {
        visible: menu.offersNextStep && text.length > 0
        enabled: visible
        height: visible ? implicitHeight : 0
        text: menu.model.facts.nextStep
        iconName: menu.model.facts.isDraft ? "paper-plane" : "check-circle-filled"
        onTriggered: menu.model.takeNextStep()
    }

    PopupMenuItem {
        text: "Copy Email Text"
        iconName: "envelope"
        onTriggered: menu.model.delivery.copyEmailText()
    }

    PopupMenuItem {
        text: "Show PDF in Files"
        iconName: "folder"
        onTriggered: menu.model.delivery.showPDF()
    }

    PopupMenuItem {
        visible: menu.model.facts.isDraft
        enabled: visible
        height: visible ? implicitHeight : 0
        text: "Rename…"
        iconName: "pencil"
        hint: "F2"
        onTriggered: menu.renames = true
    }

    PopupMenuSeparator {}

    PopupMenuItem {
        text: "Delete Invoice…"
        iconName: "trash"
        destructive: true
        onTriggered: menu.model.askToDelete()
    }
}
