// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Clients

/// What can be done with a client. It keeps to the client that it was opened for.
PopupMenu {
    id: menu

    required property ClientsModel model

    PopupMenuItem {
        text: "Invoice Unbilled Time…"
        iconName: "document"
        onTriggered: menu.model.menuInvoice()
    }

    PopupMenuItem {
        text: "Edit…"
        iconName: "pencil"
        onTriggered: menu.model.menuEdit()
    }

    PopupMenuSeparator {}

    PopupMenuItem {
        text: "Delete…"
        iconName: "trash"
        destructive: true
        onTriggered: menu.model.menuRemove()
    }
}
