// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Clients

/// The clients as cards, and what can be done with them.
FocusScope {
    id: view

    required property ClientsModel model

    /// Whether nothing lies over this screen.
    readonly property bool isInFront: visible && !model.editor.isOpen && !model.confirmation.isOpen

    /// Nobody sees a screen in a window that is closed or minimized.
    readonly property bool isSeen: visible && Window.visibility !== Window.Hidden && Window.visibility !== Window.Minimized

    readonly property real margin: 24

    function takeKeyboard(): void {
        if (model.isEmpty && hero.item)
            (hero.item as ClientsHero).takeKeyboard();
        else
            grid.takeKeyboard(Qt.OtherFocusReason);
    }

    // What doesn't show would keep the keyboard.
    enabled: visible
    onIsSeenChanged: model.isShown = isSeen
    Component.onCompleted: model.isShown = isSeen

    Shortcut {
        enabled: view.isInFront
        sequence: "Ctrl+N"
        onActivated: view.model.add()
    }

    Shortcut {
        enabled: view.isInFront && view.model.isSearchShown
        sequence: "Ctrl+F"
        onActivated: search.takeFocus()
    }

    PageHeader {
        id: header

        anchors { left: parent.left; right: parent.right; top: parent.top; margins: view.margin }
        title: "Clients"
        subtitle: view.model.subtitle

        SearchPill {
            id: search

            visible: view.model.isSearchShown
            prompt: "Search clients"
            text: view.model.search
            onTextChanged: view.model.search = text
            onEscaped: grid.takeKeyboard(Qt.OtherFocusReason)
            onAccepted: grid.takeFirst()
        }

        GlowButton {
            text: "Add Client"
            iconName: "plus"
            help: "Ctrl+N"
            prominent: true
            onClicked: view.model.add()
        }
    }

    // What is cleared here is to be seen in the field, and that binds once.
    Connections {
        target: view.model

        function onChanged(): void { search.text = view.model.search; }
        function onRemoved(): void { view.takeKeyboard(); }
        function onRevealRequested(row: int): void { grid.positionViewAtIndex(row, GridView.Contain); }
    }

    Connections {
        target: view.model.editor

        function onDismissed(): void { view.takeKeyboard(); }
    }

    KeyedGrid {
        id: grid

        /// Goes on with what was found.
        function takeFirst(): void {
            takeKeyboard(Qt.TabFocusReason);
            if (selection.currentRow < 0)
                selection.moveCurrent(1);
        }

        anchors {
            left: parent.left; leftMargin: view.margin
            right: parent.right; rightMargin: view.margin - spacing
            top: header.bottom; topMargin: 18
            bottom: parent.bottom
        }
        focus: true
        visible: !view.model.isEmpty
        clip: true
        label: "Clients"
        cardHeight: 196 + 28 * view.model.projectLines
        bottomMargin: view.margin - spacing
        selection: view.model.selection
        model: view.model.cards // qmllint disable
        onActivated: event => {
            event.accepted = selection.currentRow >= 0;
            view.model.edit(selection.currentRow);
        }
        onDeleteRequested: view.model.remove(selection.currentRow)
        onMenuRequested: (row, line, x, y) => {
            if (!view.model.openMenu(row))
                return;
            const place = line.mapToItem(view, x, y);
            (menu.make() as ClientMenu).popup(view, place.x, place.y);
        }

        // The cards don't outlive their grid.
        // qmllint disable unqualified
        delegate: ClientCard {
            width: grid.cellWidth - grid.spacing
            height: grid.cardHeight
            selected: grid.selection.currentRow === index
            onClicked: row => grid.click(row, Qt.NoModifier)
            onDoubleClicked: row => view.model.edit(row)
            onMenuRequested: (row, x, y) => {
                grid.click(row, Qt.NoModifier);
                grid.menuRequested(row, this, x, y);
            }
            onInvoiceRequested: row => {
                grid.click(row, Qt.NoModifier);
                view.model.invoice(row);
            }
        }
        // qmllint enable unqualified
    }

    PlainText {
        anchors { left: parent.left; right: parent.right; top: header.bottom; margins: view.margin; topMargin: 72 }
        visible: text.length > 0
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        maximumLineCount: 3
        text: view.model.noMatchText
        color: Theme.secondaryText
    }

    OnDemand {
        id: hero

        anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter }
        wanted: view.model.isShown && view.model.isEmpty
        visible: view.model.isEmpty

        // What is made on demand doesn't outlive its view.
        // qmllint disable unqualified
        sourceComponent: ClientsHero {
            model: view.model
        }
        // qmllint enable unqualified
    }

    OnDemand {
        id: menu

        // qmllint disable unqualified
        sourceComponent: ClientMenu {
            parent: view
            model: view.model
            onClosed: if (view.isInFront) grid.takeKeyboard(Qt.PopupFocusReason)
        }
        // qmllint enable unqualified
    }

    // It shows itself.
    OnDemand {
        wanted: view.model.editor.isOpen

        // qmllint disable unqualified
        sourceComponent: ClientEditor {
            model: view.model.editor
        }
        // qmllint enable unqualified
    }
}
