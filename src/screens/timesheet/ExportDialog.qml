// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Dialogs
import Elmworth.Theme
import Elmworth.Timesheet

/// Asks where the filtered entries are to be written.
FileDialog {
    id: dialog

    property TimesheetModel model: null

    /// The dialog has closed, and what follows from that is done.
    signal finished()

    function start(timesheet: TimesheetModel): void {
        model = timesheet;
        currentFile = timesheet.exportFile();
        open();
    }

    title: "Export CSV"
    fileMode: FileDialog.SaveFile
    defaultSuffix: "csv"
    nameFilters: ["CSV (*.csv)", "All files (*)"]
    acceptLabel: "Save"
    // Not every platform's dialog asks, so the timesheet does. The linter doesn't know all that a dialog has.
    // qmllint disable
    options: FileDialog.DontConfirmOverwrite
    onVisibleChanged: {
        if (visible)
            keys.take(dialog.parentWindow, dialog.acceptLabel);
        else
            Qt.callLater(finished);
    }
    // qmllint enable
    onAccepted: model.requestExport(selectedFile)

    SaveDialogKeys { id: keys }
}
