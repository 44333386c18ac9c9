// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme
import Elmworth.Timesheet

/// The days and their entries, under the head that scrolls with them. All lines have the same height, so that the
/// place of each is known however many there are.
ListView {
    id: list

    required property TimesheetModel timesheet

    /// Before the head grew or shrank, which leaves the lines where they are.
    property bool stoodAtTop: true

    /// Whether the keyboard acts on the lines, and not on the head.
    readonly property bool hasKeyboard: keys.activeFocus

    signal exportRequested()
    signal menuRequested(int row, Item line, real x, real y)

    function takeKeyboard(reason: int): void {
        keys.forceActiveFocus(reason);
    }

    function find(): void {
        positionViewAtBeginning();
        (headerItem as TimesheetHead).find();
    }

    function reveal(): void {
        if (timesheet.currentRow >= 0)
            positionViewAtIndex(timesheet.currentRow, ListView.Contain);
    }

    function requestMenu(): void {
        reveal();  // a line that is scrolled away may have no item
        forceLayout();
        const line = itemAtIndex(timesheet.currentRow);
        if (line)
            menuRequested(timesheet.currentRow, line, 48, line.height / 2);
    }

    // The linter can't find the base of DelegateChooser wherever its type is named.
    delegate: Qt.createComponent("TimesheetLines.qml").createObject(list, { list: list }) // qmllint disable
    model: timesheet.rows // qmllint disable
    currentIndex: -1
    keyNavigationEnabled: false
    highlightFollowsCurrentItem: false
    boundsBehavior: Flickable.StopAtBounds
    reuseItems: true
    cacheBuffer: 320
    Accessible.role: Accessible.List
    Accessible.name: "Days"

    onContentYChanged: stoodAtTop = contentY <= originY + 1

    SeenOrder {
        content: list.contentItem
    }

    Basic.ScrollBar.vertical: SlimScrollBar {}

    // Acts on the lines. It comes after the head, for which the list as a whole would stand in the way.
    Basic.Control {
        id: keys

        parent: list
        anchors.fill: parent
        focus: true
        focusPolicy: Qt.TabFocus
        hoverEnabled: false
        Accessible.role: Accessible.List
        Accessible.name: "Entries"
        Accessible.focusable: true

        Keys.onUpPressed: event => { list.timesheet.moveCurrent(-1, event.modifiers & Qt.ShiftModifier); list.reveal(); }
        Keys.onDownPressed: event => { list.timesheet.moveCurrent(1, event.modifiers & Qt.ShiftModifier); list.reveal(); }
        Keys.onReturnPressed: event => event.accepted = list.timesheet.editSelected()
        Keys.onEnterPressed: event => event.accepted = list.timesheet.editSelected()
        Keys.onDeletePressed: list.timesheet.askToDeleteSelected()
        Keys.onEscapePressed: list.timesheet.clearSelection()
        Keys.onMenuPressed: list.requestMenu()
        Keys.onPressed: event => {
            const page = Math.max(1, Math.floor(list.height / 52) - 1);
            const extend = (event.modifiers & Qt.ShiftModifier) !== 0;
            event.accepted = true;
            if (event.matches(StandardKey.SelectAll))
                list.timesheet.selectAll();
            else if (event.key === Qt.Key_F10 && extend)
                list.requestMenu();
            else if (event.key === Qt.Key_PageDown)
                list.timesheet.moveCurrent(page, extend);
            else if (event.key === Qt.Key_PageUp)
                list.timesheet.moveCurrent(-page, extend);
            else if (event.key === Qt.Key_End)
                list.timesheet.moveCurrent(list.count, extend);
            else if (event.key === Qt.Key_Home)
                list.timesheet.moveCurrent(-list.count, extend);
            else if (event.key === Qt.Key_Backspace)
                list.timesheet.askToDeleteSelected();
            else
                event.accepted = false;
            if (event.accepted)
                list.reveal();
            if (event.key === Qt.Key_Home)
                list.positionViewAtBeginning();
        }

        FocusRing {
            anchors.margins: 3
            shows: keys.visualFocus && list.timesheet.currentRow < 0
        }
    }

    // The head and the lines don't outlive their list.
    // qmllint disable
    header: TimesheetHead {
        width: list.width
        model: list.timesheet
        onExportRequested: list.exportRequested()
        onSearchLeft: list.takeKeyboard(Qt.OtherFocusReason)
        onHeightChanged: if (list.stoodAtTop) Qt.callLater(list.positionViewAtBeginning)
    }

    footer: Item {
        height: 24
    }

    // qmllint enable
}
