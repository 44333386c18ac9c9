// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Timesheet
import Elmworth.Clients
import Elmworth.Projects
import Elmworth.Invoices
import Elmworth.Main

/// The sidebar, and the screen of the section that is chosen there.
Basic.SplitView {
    id: view

    required property MainViewModel model

    /// Whether nothing lies over the window.
    readonly property bool isInFront: !model.confirmation.isOpen && !model.newInvoice.isOpen && !model.welcome.isOpen && !model.timesheet.editor.isOpen && !model.clients.editor.isOpen && !model.projects.editor.isOpen

    /// Whether the window's own frame was seen. The sections are made after it, so that a start shows something at once.
    property bool isDrawn: false

    signal closeRequested()

    function makeSections(): void {
        isDrawn = true;
    }

    Connections {
        target: view.Window.window
        enabled: !view.isDrawn

        // Not at once: the frame counts as drawn only when this returns.
        function onFrameSwapped(): void {
            Qt.callLater(view.makeSections); // qmllint disable
        }
    }

    Shortcut {
        enabled: view.isInFront && view.model.history.canUndo
        sequence: "Ctrl+Z"
        onActivated: view.model.history.undo()
    }

    Shortcut {
        enabled: view.isInFront && view.model.history.canRedo
        sequence: "Ctrl+Shift+Z"
        onActivated: view.model.history.redo()
    }

    handle: Item {
        implicitWidth: 9

        Hairline {
            anchors.horizontalCenter: parent.horizontalCenter
            height: parent.height
        }
    }

    Sidebar {
        id: sidebar

        Basic.SplitView.minimumWidth: 200
        Basic.SplitView.preferredWidth: 214
        Basic.SplitView.maximumWidth: 260
        model: view.model
        onCloseRequested: view.closeRequested()
    }

    Item {
        Basic.SplitView.fillWidth: true

        StackLayout {
            id: sections

            /// Does nothing for a section that is still to be made.
            function takeKeyboard(): void {
                if (currentIndex === 0 && timesheet.item)
                    (timesheet.item as TimesheetView).takeKeyboard();
                else if (currentIndex === 1 && clients.item)
                    (clients.item as ClientsView).takeKeyboard();
                else if (currentIndex === 2 && projects.item)
                    (projects.item as ProjectsView).takeKeyboard();
                else if (currentIndex === 3 && invoices.item)
                    (invoices.item as InvoicesView).takeKeyboard();
            }
            function goOn(): void {
                if (view.isInFront && !sidebar.activeFocus)
                    takeKeyboard();
            }

            anchors.fill: parent
            currentIndex: view.model.section
            // Who chooses a section by its key or a button goes on there, and who walks through the sidebar stays there.
            onCurrentIndexChanged: goOn()

            OnDemand {
                id: timesheet

                focus: true
                wanted: view.isDrawn && view.model.section === 0
                onLoaded: sections.goOn()

                Component.onCompleted: setSource("qrc:/qt-project.org/imports/Elmworth/Timesheet/TimesheetView.qml", { focus: true, model: view.model.timesheet })
            }

            OnDemand {
                id: clients

                wanted: view.isDrawn && view.model.section === 1
                onLoaded: sections.goOn()

                Component.onCompleted: setSource("qrc:/qt-project.org/imports/Elmworth/Clients/ClientsView.qml", { focus: true, model: view.model.clients })
            }

            OnDemand {
                id: projects

                wanted: view.isDrawn && view.model.section === 2
                onLoaded: sections.goOn()

                Component.onCompleted: setSource("qrc:/qt-project.org/imports/Elmworth/Projects/ProjectsView.qml", { focus: true, model: view.model.projects })
            }

            OnDemand {
                id: invoices

                wanted: view.isDrawn && view.model.section === 3
                onLoaded: sections.goOn()

                Component.onCompleted: setSource("qrc:/qt-project.org/imports/Elmworth/Invoices/InvoicesView.qml", { focus: true, model: view.model.invoices })
            }
        }

        UndoNotice {
            anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom; bottomMargin: 20 }
            width: Math.min(implicitWidth, parent.width - 48)
            history: view.model.history
            // What doesn't show would keep the keyboard.
            onIsWantedChanged: if (!isWanted && hasKeyboard) sections.takeKeyboard()
        }
    }
}
