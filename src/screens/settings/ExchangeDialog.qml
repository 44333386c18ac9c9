// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Dialogs
import Elmworth.Theme

/// Asks for a file to read or to write.
FileDialog {
    id: dialog

    /// Gets the file.
    property var take: null

    function openFor(request: var): void {
        title = request.title;
        nameFilters = request.filters;
        defaultSuffix = "";
        fileMode = FileDialog.OpenFile;
        acceptLabel = request.label;
        take = request.take;
        open();
    }

    function saveAs(request: var): void {
        title = request.title;
        nameFilters = request.filters;
        defaultSuffix = request.suffix;
        fileMode = FileDialog.SaveFile;
        acceptLabel = request.label;
        take = request.take;
        currentFile = request.file;
        open();
    }

    // Not every platform's dialog asks, so that the window does. The linter doesn't know all that a dialog has.
    // qmllint disable
    options: FileDialog.DontConfirmOverwrite
    onVisibleChanged: if (visible && fileMode === FileDialog.SaveFile) keys.take(dialog.parentWindow, dialog.acceptLabel)
    onAccepted: take(selectedFile)
    // qmllint enable

    SaveDialogKeys { id: keys }
}
