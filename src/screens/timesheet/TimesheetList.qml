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

    signal exportRequested()
    signal menuRequested(int row, Item line, real x, real y)

    function find(): void {
        positionViewAtBeginning();
        (headerItem as TimesheetHead).find();
    }

    function reveal(): void {
        if (timesheet.currentRow >= 0)
            positionViewAtIndex(timesheet.currentRow, ListView.Contain);
    }

    function requestMenu(): void {
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
    activeFocusOnTab: true
    Accessible.role: Accessible.List
    Accessible.name: "Entries"

    Keys.onUpPressed: event => { timesheet.moveCurrent(-1, event.modifiers & Qt.ShiftModifier); reveal(); }
    Keys.onDownPressed: event => { timesheet.moveCurrent(1, event.modifiers & Qt.ShiftModifier); reveal(); }
    Keys.onReturnPressed: event => event.accepted = timesheet.editSelected()
    Keys.onEnterPressed: event => event.accepted = timesheet.editSelected()
    Keys.onDeletePressed: timesheet.askToDeleteSelected()
    Keys.onEscapePressed: timesheet.clearSelection()
    Keys.onMenuPressed: requestMenu()
    Keys.onPressed: event => {
        const page = Math.max(1, Math.floor(height / 52) - 1);
        const extend = (event.modifiers & Qt.ShiftModifier) !== 0;
        event.accepted = true;
        if (event.matches(StandardKey.SelectAll))
            timesheet.selectAll();
        else if (event.key === Qt.Key_F10 && extend)
            requestMenu();
        else if (event.key === Qt.Key_PageDown)
            timesheet.moveCurrent(page, extend);
        else if (event.key === Qt.Key_PageUp)
            timesheet.moveCurrent(-page, extend);
        else if (event.key === Qt.Key_End)
            timesheet.moveCurrent(count, extend);
        else if (event.key === Qt.Key_Home)
            timesheet.moveCurrent(-count, extend);
        else if (event.key === Qt.Key_Backspace)
            timesheet.askToDeleteSelected();
        else
            event.accepted = false;
        if (event.accepted)
            reveal();
        if (event.key === Qt.Key_Home)
            positionViewAtBeginning();
    }

    Basic.ScrollBar.vertical: SlimScrollBar {}

    // The head and the lines don't outlive their list.
    // qmllint disable
    header: TimesheetHead {
        width: list.width
        model: list.timesheet
        onExportRequested: list.exportRequested()
        onSearchLeft: list.forceActiveFocus(Qt.OtherFocusReason)
        onHeightChanged: if (list.contentY <= list.originY + 1 || list.atYBeginning) Qt.callLater(list.positionViewAtBeginning)
    }

    footer: Item {
        height: 24
    }

    // qmllint enable
}
