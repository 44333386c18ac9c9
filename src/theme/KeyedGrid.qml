// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// Cards in as many columns as fit, which scroll and can be reached by keyboard: the arrows move in two dimensions; see
/// ListKeys and KeyedList. A card leaves `spacing` free at its right and below, so that the grid is to be so much wider
/// than what stands above it.
GridView {
    id: grid

    required property KeyedSelection selection
    property string label: ""
    property real smallestCard: 270
    property real cardHeight: 200
    property real spacing: 14
    readonly property int columns: Math.max(1, Math.floor(width / (smallestCard + spacing)))
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

    cellWidth: Math.floor(width / columns)
    cellHeight: cardHeight + spacing
    currentIndex: -1
    keyNavigationEnabled: false
    highlightFollowsCurrentItem: false
    boundsBehavior: Flickable.StopAtBounds
    // A grid keeps what it could use again as children that are only not drawn, and so would be read out.
    reuseItems: false
    cacheBuffer: 320
    Accessible.role: Accessible.List
    Accessible.name: label
    Basic.ScrollBar.vertical: SlimScrollBar {}

    SeenOrder { content: grid.contentItem }

    ListKeys {
        id: keys

        parent: grid
        anchors.fill: parent
        selection: grid.selection
        view: grid
        columns: grid.columns
        lineHeight: grid.cellHeight
        label: grid.label
        onActivated: event => grid.activated(event)
        onToggled: event => grid.toggled(event)
        onDeleteRequested: grid.deleteRequested()
        onMenuRequested: (row, line, x, y) => grid.menuRequested(row, line, x, y)
    }
}
