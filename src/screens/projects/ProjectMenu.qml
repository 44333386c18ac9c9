// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Projects

/// What can be done with a project. It keeps to the one that it was opened for.
PopupMenu {
    id: menu

    required property ProjectsModel model

    PopupMenuItem {
        text: "Edit…"
        iconName: "pencil"
        onTriggered: menu.model.menuEdit()
    }

    PopupMenuItem {
        text: menu.model.menuUnarchives ? "Unarchive" : "Archive"
        iconName: menu.model.menuUnarchives ? "tray-full" : "tray"
        onTriggered: menu.model.menuArchive()
    }

    PopupMenuSeparator {}

    PopupMenuItem {
        text: "Delete…"
        iconName: "trash"
        destructive: true
        onTriggered: menu.model.menuDelete()
    }
}
