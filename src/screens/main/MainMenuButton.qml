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

    iconName: "menu"
    label: "Menu"
    help: "Menu (" + menuKeys.nativeText + ")"
    Accessible.role: Accessible.ButtonMenu
    onClicked: {
        const open = menu.item as MainMenu;
        open?.visible ? open.close() : show();
    }

    function show(): MainMenu {
        const opening = menu.make() as MainMenu;
        opening.popup(button, 0, button.height + 4);
        opening.currentIndex = 0;
        return opening;
    }

    function showSubmenu(position: int): void {
        const opened = show();
        opened.currentIndex = position;
        (opened.itemAt(position) as PopupMenuItem).press();
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
        id: stopShortcut

        sequence: "Ctrl+Alt+."
        enabled: button.model.running.isRunning
        onActivated: button.model.stopTimer()
    }

    Shortcut {
        id: resumeShortcut

        sequence: "Ctrl+Shift+R"
        enabled: !button.model.running.isRunning
        onActivated: button.model.resumeLastEntry()
    }

    Shortcut {
        sequence: "Ctrl+,"
        onActivated: button.model.openSettings()
    }

    OnDemand {
        id: menu

        onLoaded: (item as MainMenu).closeRequested.connect(button.closeRequested)

        // What the menu is made of is read when it first opens.
        Component.onCompleted: setSource("qrc:/qt-project.org/imports/Elmworth/Main/MainMenu.qml", {
            parent: button, model: button.model, stopKeys: stopShortcut.nativeText, resumeKeys: resumeShortcut.nativeText
        })
    }
}
