// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Main

/// The button with the window's menus. F10 opens it, Alt+G and Alt+T its two submenus; their shortcuts work
/// without it.
IconButton {
    id: button

    required property MainViewModel model

    signal closeRequested()

    systemImage: "line.3.horizontal"
    label: "Menu"
    help: "Menu (" + menuKeys.nativeText + ")"
    Accessible.role: Accessible.ButtonMenu
    onClicked: menu.visible ? menu.close() : show()

    function show(): void {
        menu.popup(button, 0, button.height + 4);
        menu.currentIndex = 0;
    }

    function showSubmenu(position: int): void {
        show();
        menu.currentIndex = position;
        (menu.itemAt(position) as PopupMenuItem).press();
    }

    Shortcut {
        id: menuKeys

        sequence: "F10"
        onActivated: button.show()
    }

    Shortcut {
        sequence: "Alt+G"
        onActivated: button.showSubmenu(0)
    }

    Shortcut {
        sequence: "Alt+T"
        onActivated: button.showSubmenu(1)
    }

    Shortcut {
        id: stopKeys

        sequence: "Ctrl+Alt+."
        enabled: button.model.running.isRunning
        onActivated: button.model.stopTimer()
    }

    Shortcut {
        id: resumeKeys

        sequence: "Ctrl+Shift+R"
        enabled: !button.model.running.isRunning
        onActivated: button.model.resumeLastEntry()
    }

    PopupMenu {
        id: menu

        PopupMenu {
            title: "Go"

            Repeater {
                model: button.model.sections

                // The menu outlives its items.
                // qmllint disable unqualified
                PopupMenuItem {
                    required property int index
                    required property string title
                    required systemImage
                    required hint

                    text: title
                    onTriggered: button.model.showSection(index)
                }
                // qmllint enable unqualified
            }
        }

        PopupMenu {
            title: "Timer"

            PopupMenuItem {
                text: "Stop Timer"
                hint: stopKeys.nativeText
                enabled: button.model.running.isRunning
                onTriggered: button.model.stopTimer()
            }

            PopupMenuItem {
                text: "Resume Last Entry"
                hint: resumeKeys.nativeText
                enabled: !button.model.running.isRunning
                onTriggered: button.model.resumeLastEntry()
            }
        }

        PopupMenuItem {
            text: "Open Panel"
            onTriggered: button.model.openPanel()
        }

        PopupMenuSeparator {}

        PopupMenuItem {
            text: "Check for Updates…"
            enabled: button.model.canCheckForUpdates
        }

        PopupMenuSeparator {}

        PopupMenuItem {
            text: "Close Window"
            hint: "Ctrl+W"
            onTriggered: button.closeRequested()
        }

        PopupMenuItem {
            text: "Quit Elmworth"
            hint: "Ctrl+Q"
            onTriggered: Qt.quit()
        }
    }
}
