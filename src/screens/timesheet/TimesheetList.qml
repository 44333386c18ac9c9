// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Timesheet

/// The days and their entries, under the head that scrolls with them. All lines have the same height, so that the
/// place of each is known however many there are.
KeyedList {
    id: list

    required property TimesheetModel timesheet

    /// Before the head grew or shrank, which leaves the lines where they are.
    property bool stoodAtTop: true

    /// The one that a menu is open on.
    property Item menuLine: null

    signal exportRequested()

    function find(): void {
        positionViewAtBeginning();
        (headerItem as TimesheetHead).find();
    }

    // The linter can't find the base of DelegateChooser wherever its type is named.
    delegate: Qt.createComponent("TimesheetLines.qml").createObject(list, { list: list }) // qmllint disable
    model: timesheet.rows // qmllint disable
    selection: timesheet.selection
    label: "Entries"
    Accessible.name: "Days"

    onActivated: event => event.accepted = timesheet.editSelected()
    onDeleteRequested: timesheet.askToDeleteSelected()
    onContentYChanged: stoodAtTop = contentY <= originY + 1

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
