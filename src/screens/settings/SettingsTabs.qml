// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Settings

/// The tabs of the window. The keyboard reaches the chosen one, the arrows and Ctrl with a digit choose another.
RowLayout {
    id: tabs

    property int currentIndex: 0

    function choose(index: int): void {
        if (index < 0 || index >= buttons.count)
            return;
        if (buttons.itemAt(currentIndex).activeFocus)
            buttons.itemAt(index).forceActiveFocus(Qt.TabFocusReason);
        currentIndex = index;
    }

    function takeKeyboard(): void {
        buttons.itemAt(currentIndex).forceActiveFocus(Qt.OtherFocusReason);
    }

    spacing: 6
    Accessible.role: Accessible.PageTabList
    Accessible.name: "Settings"

    Repeater {
        id: buttons

        model: [
            { title: "Business", iconName: "buildings" },
            { title: "Invoices", iconName: "document" },
            { title: "General", iconName: "gear" },
        ]

        // The tabs don't outlive their row.
        // qmllint disable unqualified
        SettingsTab {
            id: tab

            required property int index
            required property var modelData

            title: modelData.title
            iconName: modelData.iconName
            selected: index === tabs.currentIndex
            onClicked: tabs.choose(index)
            Keys.onLeftPressed: tabs.choose(index - 1)
            Keys.onRightPressed: tabs.choose(index + 1)

            Shortcut {
                sequence: "Ctrl+" + (tab.index + 1)
                onActivated: tabs.choose(tab.index)
            }
        }
        // qmllint enable unqualified
    }
}
