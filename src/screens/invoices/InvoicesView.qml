// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Invoices

/// The invoices: all of them beside the one that is selected.
FocusScope {
    id: screen

    required property InvoicesModel model

    /// Whether nothing lies over this screen.
    readonly property bool isInFront: visible && !model.confirmation.isOpen && !model.newInvoice.isOpen
    readonly property bool isDetailOpen: model.detail.isOpen

    /// Nobody sees a screen in a window that is closed or minimized.
    readonly property bool isSeen: visible && Window.visibility !== Window.Hidden && Window.visibility !== Window.Minimized

    function takeKeyboard(): void {
        list.takeKeyboard(Qt.OtherFocusReason);
    }

    // What doesn't show would keep the keyboard.
    enabled: visible
    onIsSeenChanged: model.isShown = isSeen
    Component.onCompleted: model.isShown = isSeen

    Shortcut {
        enabled: screen.isInFront
        sequence: "Ctrl+Shift+N"
        onActivated: screen.model.openNewInvoice()
    }

    Shortcut {
        enabled: screen.isInFront && screen.isDetailOpen && !saving.active
        sequence: "Ctrl+E"
        onActivated: saving.active = true
    }

    Shortcut {
        enabled: screen.isInFront && screen.model.detail.facts.isDraft
        sequence: "F2"
        onActivated: screen.model.detail.beginRenaming()
    }

    InvoiceList {
        id: list

        anchors { left: parent.left; top: parent.top; bottom: parent.bottom }
        width: screen.model.isEmpty ? parent.width : 340
        focus: true
        model: screen.model
        onActivated: (detail.item as InvoiceDetail)?.takeKeyboard(Qt.TabFocusReason)
        onMenuRequested: (line, x, y) => {
            const place = line.mapToItem(screen, x, y);
            (menu.make() as InvoiceMenu).popup(screen, place.x, place.y);
        }
    }

    OnDemand {
        id: menu

        // What is made on demand doesn't outlive its view.
        // qmllint disable unqualified
        sourceComponent: InvoiceMenu {
            parent: screen
            model: screen.model.detail
            offersNextStep: true
            onExportRequested: saving.active = true
            onClosed: list.takeKeyboard(Qt.PopupFocusReason)
        }
        // qmllint enable unqualified
    }

    Hairline {
        x: list.width
        height: parent.height
        visible: !screen.model.isEmpty
    }

    Item {
        anchors {
            left: parent.left; leftMargin: 341
            right: parent.right; top: parent.top; bottom: parent.bottom
        }
        visible: !screen.model.isEmpty

        OnDemand {
            id: detail

            anchors.fill: parent
            visible: screen.isDetailOpen
            wanted: screen.isDetailOpen

            // What is made on demand doesn't outlive its view.
            // qmllint disable unqualified
            sourceComponent: InvoiceDetail {
                model: screen.model.detail
                onExportRequested: saving.active = true
                onLeaveRequested: list.takeKeyboard(Qt.OtherFocusReason)
            }
            // qmllint enable unqualified
        }

        EmptyHero {
            anchors.centerIn: parent
            width: parent.width
            visible: !screen.isDetailOpen
            icon: "document-rich"
            title: "Select an invoice"
            message: "Its PDF preview, totals and actions appear here."
        }
    }

    // The dialog's module is only read for an export.
    Loader {
        id: saving

        active: false
        source: "InvoiceExportDialog.qml"
        onLoaded: (item as InvoiceExportDialog).start(screen.model.detail.delivery)
    }

    Connections {
        target: saving.item as InvoiceExportDialog

        function onFinished(): void {
            saving.active = false;
        }
    }

    Connections {
        target: screen.model.detail

        function onOpened(): void {
            if (!screen.isDetailOpen && screen.isInFront)
                screen.takeKeyboard();
        }
    }
}
