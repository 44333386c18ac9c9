// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Timesheet
import Elmworth.Main

/// The sidebar, and the screen of the section that is chosen there.
Basic.SplitView {
    id: view

    required property MainViewModel model

    /// Whether nothing lies over the window.
    readonly property bool isInFront: !model.confirmation.isOpen && !model.timesheet.editor.isOpen

    signal closeRequested()

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
            anchors.fill: parent
            currentIndex: view.model.section

            TimesheetView {
                id: timesheet

                focus: true
                model: view.model.timesheet
            }

            OnDemand {
                wanted: view.model.section === 1

                sourceComponent: SectionPlaceholder {
                    title: "Clients"
                    icon: "people-filled"
                    colors: Theme.violetGradient
                    message: "Clients and what they owe will appear here. Until then, add one in a terminal: elmworth client add \"Acme Co\" --rate 120"
                }
            }

            OnDemand {
                wanted: view.model.section === 2

                sourceComponent: SectionPlaceholder {
                    title: "Projects"
                    icon: "folder-filled"
                    colors: Theme.skyGradient
                    message: "Projects with their budgets will appear here. Until then, add one in a terminal: elmworth project add \"Website\" --client \"Acme Co\""
                }
            }

            OnDemand {
                wanted: view.model.section === 3

                sourceComponent: SectionPlaceholder {
                    title: "Invoices"
                    icon: "document"
                    colors: Theme.mintGradient
                    message: "Invoices and their PDFs will appear here. Until then, make one in a terminal: “elmworth invoice create --help” tells how."
                }
            }
        }

        UndoNotice {
            anchors { horizontalCenter: parent.horizontalCenter; bottom: parent.bottom; bottomMargin: 20 }
            width: Math.min(implicitWidth, parent.width - 48)
            history: view.model.history
            // What doesn't show would keep the keyboard.
            onIsWantedChanged: {
                if (isWanted || !hasKeyboard)
                    return;
                if (timesheet.visible)
                    timesheet.takeKeyboard();
                else
                    sidebar.forceActiveFocus(Qt.OtherFocusReason);
            }
        }
    }
}
