// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Panel
import Elmworth.Main

/// The window's menus.
PopupMenu {
    id: menus

    required property MainViewModel model
    /// The keys that stop the timer and go on with the last entry, as the user reads them.
    property string stopKeys: ""
    property string resumeKeys: ""

    readonly property HistoryModel history: model.history

    signal closeRequested()

    PopupMenu {
        title: "Go"

        Repeater {
            model: menus.model.sections

            // The menu outlives its items.
            // qmllint disable unqualified
            PopupMenuItem {
                required property int index
                required property string title
                required iconName
                required hint

                text: title
                onTriggered: menus.model.showSection(index)
            }
            // qmllint enable unqualified
        }
    }

    PopupMenu {
        title: "Timer"

        PopupMenuItem {
            text: "Stop Timer"
            hint: menus.stopKeys
            enabled: menus.model.running.isRunning
            onTriggered: menus.model.stopTimer()
        }

        PopupMenuItem {
            text: "Resume Last Entry"
            hint: menus.resumeKeys
            enabled: !menus.model.running.isRunning
            onTriggered: menus.model.resumeLastEntry()
        }
    }

    PopupMenuSeparator {}

    PopupMenuItem {
        text: menus.history.undoText
        hint: "Ctrl+Z"
        enabled: menus.history.canUndo
        onTriggered: menus.history.undo()
    }

    PopupMenuItem {
        text: menus.history.redoText
        hint: "Ctrl+Shift+Z"
        enabled: menus.history.canRedo
        onTriggered: menus.history.redo()
    }

    PopupMenuSeparator {}

    PopupMenuItem {
        text: "Open Panel"
        onTriggered: menus.model.openPanel()
    }

    PopupMenuItem {
        text: "Settings…"
        hint: "Ctrl+,"
        onTriggered: menus.model.openSettings()
    }

    PopupMenuSeparator {}

    PopupMenuItem {
        text: "Check for Updates…"
        enabled: menus.model.canCheckForUpdates
        onTriggered: menus.model.checkForUpdates()
    }

    PopupMenuSeparator {}

    PopupMenuItem {
        text: "Close Window"
        hint: "Ctrl+W"
        onTriggered: menus.closeRequested()
    }

    PopupMenuItem {
        text: "Quit Elmworth"
        hint: "Ctrl+Q"
        onTriggered: Qt.quit()
    }
}
