// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Invoices

/// The notes that stand on an invoice.
ColumnLayout {
    id: notes

    required property InvoiceDetailModel model

    spacing: 6

    ScrollingArea {
        id: scroll

        readonly property real line: 17

        /// What doesn't fit into the notes is cut off at once.
        function refresh(): void {
            if (text === notes.model.notes)
                return;
            const cursor = area.cursorPosition;
            text = notes.model.notes;
            area.cursorPosition = Math.min(cursor, area.length);
        }

        Layout.fillWidth: true
        Layout.preferredHeight: Math.max(2 * line + 16, Math.min(5 * line + 16, area.implicitHeight))
        label: "Notes on invoice"
        placeholderText: "PO number, thank-you note, project reference…"
        onTextChanged: {
            if (text === notes.model.notes)
                return;
            notes.model.notes = text;
            refresh();
            // Assistive technology types without the focus.
            if (!area.activeFocus)
                notes.model.leaveNotes();
        }
        Component.onCompleted: refresh()

        Connections {
            target: scroll.area

            function onActiveFocusChanged(): void {
                if (!scroll.area.activeFocus)
                    notes.model.leaveNotes();
            }
        }

        Connections {
            target: notes.model

            function onNotesChanged(): void { scroll.refresh(); }
        }
    }

    PlainText {
        Layout.alignment: Qt.AlignRight
        text: notes.model.notesCount
        size: Theme.captionSize
        font.family: Theme.tabularFamily
        color: Theme.secondaryText
    }
}
