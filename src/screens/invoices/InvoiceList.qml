// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Invoices

/// All invoices that pass the filter, under what is owed.
FocusScope {
    id: list

    required property InvoicesModel model

    /// Return on the invoice that is selected.
    signal activated()
    signal menuRequested(Item line, real x, real y)

    function takeKeyboard(reason: int): void {
        if (model.isEmpty)
            forceActiveFocus(reason);
        else
            lines.takeKeyboard(reason);
    }

    PageHeader {
        id: header

        anchors { left: parent.left; right: parent.right; top: parent.top; margins: 20; topMargin: 24 }
        title: "Invoices"
        subtitle: list.model.countText

        GlowButton {
            text: "New"
            label: "New Invoice"
            help: "New Invoice (Ctrl+Shift+N)"
            iconName: "plus"
            prominent: true
            onClicked: list.model.openNewInvoice()
        }
    }

    EmptyHero {
        anchors.centerIn: parent
        width: parent.width
        visible: list.model.isEmpty
        icon: "document"
        title: "No invoices yet"
        message: "Turn tracked, unbilled time into a clean PDF invoice in one click."

        GlowButton {
            text: "New Invoice"
            iconName: "plus"
            prominent: true
            focus: list.model.isEmpty
            onClicked: list.model.openNewInvoice()
        }
    }

    ColumnLayout {
        id: head

        anchors { left: parent.left; right: parent.right; top: header.bottom; leftMargin: 20; rightMargin: 20; topMargin: 18 }
        visible: !list.model.isEmpty
        spacing: 14

        RowLayout {
            Layout.fillWidth: true
            spacing: 10

            InvoiceSum {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                Layout.fillHeight: true
                icon: "hourglass"
                title: "Outstanding"
                value: list.model.summary.outstanding
                note: list.model.summary.outstandingNote
            }

            InvoiceSum {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                Layout.fillHeight: true
                icon: "exclamation-circle"
                title: "Overdue"
                value: list.model.summary.overdue
                warns: list.model.summary.hasOverdue
            }
        }

        SegmentedPicker {
            label: "Show"
            options: list.model.filterNames // qmllint disable
            currentIndex: list.model.filter
            onChosen: index => list.model.filter = index
        }
    }

    KeyedList {
        id: lines

        anchors { left: parent.left; right: parent.right; top: head.bottom; bottom: parent.bottom; topMargin: 12 }
        visible: !list.model.isEmpty
        focus: !list.model.isEmpty
        clip: true
        label: "Invoices"
        selection: list.model.selection
        rowHeight: 68
        spacing: 6
        bottomMargin: 20
        model: list.model.rows // qmllint disable
        onActivated: event => {
            event.accepted = list.model.detail.isOpen;
            if (event.accepted)
                list.activated();
        }
        onDeleteRequested: list.model.detail.askToDelete()
        onMenuRequested: (row, line, x, y) => {
            lines.click(row, Qt.NoModifier);
            list.menuRequested(line, x, y);
        }

        // The rows don't outlive their list.
        // qmllint disable unqualified
        delegate: InvoiceListRow {
            id: line

            width: lines.width
            ListView.onPooled: visible = false
            ListView.onReused: visible = true
            isCurrent: lines.hasKeyboard && index === lines.selection.currentRow
            onClicked: modifiers => lines.click(index, modifiers)
            onMenuRequested: (x, y) => lines.menuRequested(index, line, x, y)
        }
        // qmllint enable unqualified
    }

    PlainText {
        anchors { horizontalCenter: parent.horizontalCenter; top: lines.top; topMargin: 48 }
        visible: text.length > 0
        text: list.model.noneText
        color: Theme.secondaryText
    }
}
