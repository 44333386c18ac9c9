// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// Rows that scroll and can be reached by keyboard; see ListKeys. A delegate shows itself as current while the list
/// `hasKeyboard` and its index is `selection.currentRow`, and calls `click` and `menuRequested` for the pointer.
ListView {
    id: list

    required property KeyedSelection selection
    property string label: ""
    property real rowHeight: 52
    /// Whether the keyboard acts on the rows, and not on a header.
    readonly property bool hasKeyboard: keys.activeFocus

    signal activated(var event)
    signal toggled(var event)
    signal deleteRequested()
    signal menuRequested(int row, Item line, real x, real y)

    function takeKeyboard(reason: int): void {
        keys.forceActiveFocus(reason);
    }

    function requestMenu(): void {
        keys.requestMenu();
    }

    function click(row: int, modifiers: int): void {
        takeKeyboard(Qt.MouseFocusReason);
        selection.click(row, modifiers);
    }

    currentIndex: -1
    keyNavigationEnabled: false
    highlightFollowsCurrentItem: false
    boundsBehavior: Flickable.StopAtBounds
    reuseItems: true
    cacheBuffer: 320
    Accessible.role: Accessible.List
    Accessible.name: label
    Basic.ScrollBar.vertical: SlimScrollBar {}

    SeenOrder { content: list.contentItem }

    // It comes after a header, for which the list as a whole would stand in the way.
    ListKeys {
        id: keys

        parent: list
        anchors.fill: parent
        selection: list.selection
        view: list
        lineHeight: list.rowHeight
        label: list.label
        onActivated: event => list.activated(event)
        onToggled: event => list.toggled(event)
        onDeleteRequested: list.deleteRequested()
        onMenuRequested: (row, line, x, y) => list.menuRequested(row, line, x, y)
    }
}
