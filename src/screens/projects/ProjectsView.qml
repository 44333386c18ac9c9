// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Projects

/// The projects by client, and what can be done to them.
FocusScope {
    id: view

    required property ProjectsModel model

    /// Whether nothing lies over this screen.
    readonly property bool isInFront: visible && !model.editor.isOpen && !model.confirmation.isOpen

    /// Nobody sees a screen in a window that is closed or minimized.
    readonly property bool isSeen: visible && Window.visibility !== Window.Hidden && Window.visibility !== Window.Minimized

    readonly property bool showsList: model.showsList

    function takeKeyboard(): void {
        if (list.visible)
            list.takeKeyboard(Qt.OtherFocusReason);
        else
            hero.takeKeyboard();
    }

    /// Whether the keyboard is with nobody: what has it only holds this screen.
    function isKeyboardFree(): bool {
        for (let item = view as Item; item; item = item.parent)
            if (item === Window.activeFocusItem)
                return true;
        return !Window.activeFocusItem;
    }

    function claimKeyboard(): void {
        if (isInFront && isKeyboardFree())
            takeKeyboard();
    }

    /// A question leaves the keyboard to the list, which may be gone by the answer.
    function claimFromList(): void {
        if (isInFront && !showsList)
            takeKeyboard();
    }

    // What doesn't show would keep the keyboard.
    enabled: visible
    // What came in the place of the list, or the list in its place, goes on with the keyboard.
    onShowsListChanged: if (isInFront && (list.hasKeyboard || hero.hasKeyboard)) Qt.callLater(takeKeyboard) // qmllint disable
    onVisibleChanged: Qt.callLater(claimKeyboard) // qmllint disable
    onIsSeenChanged: model.isShown = isSeen
    Component.onCompleted: {
        model.isShown = isSeen;
        Qt.callLater(claimKeyboard); // qmllint disable
    }

    Connections {
        target: view.model.confirmation

        function onIsOpenChanged(): void { Qt.callLater(view.claimFromList); } // qmllint disable
    }

    Connections {
        target: view.model

        function onRevealRequested(row: int): void {
            list.reveal(row);
            list.takeKeyboard(Qt.OtherFocusReason);
        }
    }

    Shortcut {
        enabled: view.isInFront
        sequence: "Ctrl+N"
        onActivated: view.model.add()
    }

    Shortcut {
        enabled: view.isInFront
        sequence: "Ctrl+F"
        onActivated: head.find()
    }

    ProjectsHead {
        id: head

        anchors { left: parent.left; right: parent.right; top: parent.top; margins: 24 }
        model: view.model
        onSearchLeft: view.takeKeyboard()
    }

    ProjectsList {
        id: list

        anchors { left: parent.left; right: parent.right; top: head.bottom; topMargin: 8; bottom: parent.bottom }
        visible: view.model.showsList
        focus: true
        projects: view.model
        onMenuRequested: (row, line, x, y) => {
            if (!view.model.openMenu(row))
                return;
            const place = line.mapToItem(view, x, y);
            (menu.make() as ProjectMenu).popup(view, place.x, place.y);
        }
    }

    ProjectsHero {
        id: hero

        anchors { left: parent.left; right: parent.right; top: head.bottom; bottom: parent.bottom }
        visible: !list.visible
        model: view.model
    }

    OnDemand {
        id: menu

        // What is made on demand doesn't outlive its view.
        // qmllint disable unqualified
        sourceComponent: ProjectMenu {
            parent: view
            model: view.model
            // Not from what it opened.
            onClosed: if (view.isInFront) view.takeKeyboard()
        }
        // qmllint enable unqualified
    }

    // It shows itself.
    OnDemand {
        wanted: view.model.editor.isOpen
        Component.onCompleted: setSource("ProjectEditor.qml", { model: view.model.editor })
    }
}
