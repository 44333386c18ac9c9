// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Layouts
import Elmworth.Theme

/// A column of content that scrolls, and brings what the keyboard reaches into view.
Basic.ScrollView {
    id: page

    property real margin: 24
    property real widest: Infinity
    default property alias content: column.data

    readonly property Flickable view: contentItem as Flickable
    readonly property Item focusItem: Window.activeFocusItem

    function holds(item: Item): bool {
        for (let ancestor = item; ancestor; ancestor = ancestor.parent)
            if (ancestor === column)
                return true;
        return false;
    }

    function reveal(item: Item): void {
        const top = column.mapFromItem(item, 0, 0).y;
        const lowest = top + item.height + 2 * margin - height;
        view.contentY = Math.max(0, lowest, Math.min(view.contentY, top));
    }

    onFocusItemChanged: if (focusItem && holds(focusItem)) reveal(focusItem)

    spacing: 16
    activeFocusOnTab: false
    contentWidth: availableWidth
    contentHeight: column.implicitHeight + 2 * margin
    Basic.ScrollBar.horizontal.policy: Basic.ScrollBar.AlwaysOff
    Basic.ScrollBar.vertical: SlimScrollBar {
        parent: page
        x: page.width - width
        height: page.height
    }

    ColumnLayout {
        id: column

        x: Math.round(Math.max(page.margin, (page.availableWidth - width) / 2))
        y: page.margin
        width: Math.min(page.widest, page.availableWidth - 2 * page.margin)
        spacing: page.spacing
    }
}
