// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Timesheet

/// What can be done with a line of the timesheet. It keeps to the entries that it was opened for.
PopupMenu {
    id: menu

    required property EntryMenuModel model

    signal moveRequested()

    PopupMenuItem {
        text: "Edit"
        iconName: "pencil"
        onTriggered: menu.model.edit()
    }

    PopupMenuItem {
        visible: menu.model.offersContinue
        height: visible ? implicitHeight : 0
        text: "Continue Tracking"
        iconName: "play"
        onTriggered: menu.model.continueEntry()
    }

    PopupMenuItem {
        visible: menu.model.offersContinue
        height: visible ? implicitHeight : 0
        text: "Duplicate to Today"
        iconName: "copy"
        onTriggered: menu.model.duplicate()
    }

    PopupMenuItem {
        text: "Move to Project"
        iconName: "folder"
        enabled: menu.model.offersMove
        onTriggered: menu.moveRequested()
    }

    PopupMenuSeparator {}

    PopupMenuItem {
        text: "Delete"
        iconName: "trash"
        destructive: true
        onTriggered: menu.model.remove()
    }
}
