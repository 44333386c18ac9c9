// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Timesheet

/// The daily view of tracked time: what of it is shown, and what can be done to it.
FocusScope {
    id: view

    required property TimesheetModel model

    /// Whether nothing lies over this screen.
    readonly property bool isInFront: visible && !model.editor.isOpen && !model.confirmation.isOpen

    /// Nobody sees a screen in a window that is closed or minimized.
    readonly property bool isSeen: visible && Window.visibility !== Window.Hidden && Window.visibility !== Window.Minimized

    function takeKeyboard(): void {
        list.takeKeyboard(Qt.OtherFocusReason);
    }

    // What doesn't show would keep the keyboard.
    enabled: visible
    onIsSeenChanged: model.isShown = isSeen
    Component.onCompleted: model.isShown = isSeen

    Shortcut {
        enabled: view.isInFront
        sequence: "Ctrl+N"
        onActivated: view.model.addEntry()
    }

    Shortcut {
        enabled: view.isInFront
        sequence: "Ctrl+Shift+N"
        onActivated: view.model.addOnCurrentDay()
    }

    Shortcut {
        enabled: view.isInFront
        sequence: "Ctrl+F"
        onActivated: list.find()
    }

    TimesheetList {
        id: list

        anchors.fill: parent
        focus: true
        timesheet: view.model
        onExportRequested: saving.active = true
        onMenuRequested: (row, line, x, y) => {
            if (!view.model.openMenu(row))
                return;
            list.menuLine = line;
            projects.place = line.mapToItem(view, x, y);
            (menu.make() as EntryMenu).popup(view, projects.place.x, projects.place.y);
        }
    }

    OnDemand {
        id: menu

        // What is made on demand doesn't outlive its view.
        // qmllint disable unqualified
        sourceComponent: EntryMenu {
            parent: view
            model: view.model.menu
            onMoveRequested: projects.open()
            onClosed: if (!projects.visible) list.menuLine = null
        }
        // qmllint enable unqualified
    }

    ChoicePopup {
        id: projects

        property point place

        x: place.x
        y: place.y
        label: "Move to Project"
        prompt: "Search projects"
        choice: view.model.menu.projects
        onClosed: {
            list.menuLine = null;
            list.takeKeyboard(Qt.PopupFocusReason);
        }
    }

    // It shows itself.
    OnDemand {
        wanted: view.model.editor.isOpen
        Component.onCompleted: setSource("qrc:/qt-project.org/imports/Elmworth/Panel/EntryEditor.qml", { model: view.model.editor })
    }

    // The dialog's module is only read for an export.
    Loader {
        id: saving

        active: false
        source: "ExportDialog.qml"
        onLoaded: (item as ExportDialog).start(view.model)
    }

    Connections {
        target: saving.item as ExportDialog

        function onFinished(): void {
            saving.active = false;
        }
    }
}
