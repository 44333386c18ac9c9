// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// The keyboard of a list or a grid: it lies over the view and has its focus. The arrows, Page Up and Page Down, Home
/// and End move the current row, with Shift they select what lies between; Ctrl+A selects all, Escape nothing.
Basic.Control {
    id: keys

    required property KeyedSelection selection
    /// A ListView or GridView.
    required property var view
    property int columns: 1
    property real lineHeight: 52
    property string label: ""

    /// Return, on what is selected. A handler sets `event.accepted` where it does something.
    signal activated(var event)
    /// Space, likewise.
    signal toggled(var event)
    signal deleteRequested()
    signal menuRequested(int row, Item line, real x, real y)

    function reveal(): void {
        if (selection.currentRow >= 0)
            view.positionViewAtIndex(selection.currentRow, ListView.Contain);
    }

    /// Asks for the menu of the current row, also of one that is scrolled away and may have no item.
    function requestMenu(): void {
        reveal();
        view.forceLayout();
        const line = view.itemAtIndex(selection.currentRow);
        if (line)
            menuRequested(selection.currentRow, line, Math.min(48, line.width / 2), line.height / 2);
    }

    /// Moves by so many lines, or as far as there are any. In a grid that stays in the column, but where the last line
    /// is shorter.
    function moveLines(lines: int, extend: bool): void {
        const from = selection.currentRow;
        if (columns === 1 || from < 0) {
            selection.moveCurrent(columns === 1 ? lines : Math.sign(lines), extend);
            return;
        }
        const line = Math.floor(from / columns);
        const lastLine = Math.floor((view.count - 1) / columns);
        const reached = Math.max(0, Math.min(lastLine, line + lines));
        selection.moveCurrent((reached - line) * columns, extend);
    }

    /// Whether `key` moved the current row.
    function move(key: int, extend: bool): bool {
        const page = Math.max(1, Math.floor(view.height / lineHeight) - 1);
        const lines = { [Qt.Key_Up]: -1, [Qt.Key_Down]: 1, [Qt.Key_PageUp]: -page, [Qt.Key_PageDown]: page }[key];
        const rows = { [Qt.Key_Home]: -view.count, [Qt.Key_End]: view.count }[key];
        const beside = columns > 1 ? { [Qt.Key_Left]: -1, [Qt.Key_Right]: 1 }[key] : undefined;
        if (lines !== undefined)
            moveLines(lines, extend);
        else if (rows !== undefined || beside !== undefined)
            selection.moveCurrent(rows ?? beside, extend);
        else
            return false;
        reveal();
        // What stands above the first row comes with it.
        if (key === Qt.Key_Home)
            view.positionViewAtBeginning();
        return true;
    }

    focus: true
    focusPolicy: Qt.TabFocus
    hoverEnabled: false
    Accessible.role: Accessible.List
    Accessible.name: label
    Accessible.focusable: true

    Keys.onReturnPressed: event => { event.accepted = false; activated(event); }
    Keys.onEnterPressed: event => { event.accepted = false; activated(event); }
    Keys.onSpacePressed: event => { event.accepted = false; toggled(event); }
    Keys.onDeletePressed: deleteRequested()
    Keys.onEscapePressed: selection.clear()
    Keys.onMenuPressed: requestMenu()
    Keys.onPressed: event => {
        const extend = (event.modifiers & Qt.ShiftModifier) !== 0;
        event.accepted = true;
        if (event.matches(StandardKey.SelectAll))
            selection.selectAll();
        else if (event.key === Qt.Key_F10 && extend)
            requestMenu();
        else if (event.key === Qt.Key_Backspace)
            deleteRequested();
        else
            event.accepted = move(event.key, extend);
    }

    FocusRing {
        anchors.margins: 3
        shows: keys.visualFocus && keys.selection.currentRow < 0
    }
}
