// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Dialogs
import Elmworth.Theme
import Elmworth.Invoices

/// Asks where the PDF of an invoice is to be written.
FileDialog {
    id: dialog

    property InvoiceDelivery delivery: null

    /// The dialog has closed, and what follows from that is done.
    signal finished()

    function start(from: InvoiceDelivery): void {
        delivery = from;
        currentFile = from.exportFile();
        open();
    }

    title: "Export PDF"
    fileMode: FileDialog.SaveFile
    defaultSuffix: "pdf"
    nameFilters: ["PDF (*.pdf)"]
    acceptLabel: "Save"
    // Not every platform's dialog asks, so the delivery does. The linter doesn't know all that a dialog has.
    // qmllint disable
    options: FileDialog.DontConfirmOverwrite
    onVisibleChanged: {
        if (visible)
            keys.take(dialog.parentWindow, dialog.acceptLabel);
        else
            Qt.callLater(finished);
    }
    // qmllint enable
    onAccepted: delivery.requestExport(selectedFile)

    SaveDialogKeys { id: keys }
}
