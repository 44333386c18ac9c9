// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// Content that needs some room, in a place that may have less: there it scrolls, by its bars, by the wheel and
/// with the keyboard's focus. Its content fills it.
Flickable {
    id: area

    /// What the content needs.
    property real leastWidth: 0
    property real leastHeight: 0
    default property alias content: holder.data

    readonly property Item focusItem: Window.activeFocusItem

    /// As little as shows the item, or of a large one as much of its beginning as fills half of the area.
    function reveal(item: Item): void {
        const place = holder.mapFromItem(item, 0, 0);
        contentX = nearest(contentX, place.x, item.width, width, contentWidth);
        contentY = nearest(contentY, place.y, item.height, height, contentHeight);
    }

    /// Where a view of that `room` begins, to show what is `length` long at `first`.
    function nearest(now: real, first: real, length: real, room: real, whole: real): real {
        const rim = 8;
        const end = first + Math.min(length, room / 2);
        const wanted = Math.min(first - rim, Math.max(now, end + rim - room));
        return Math.max(0, Math.min(wanted, whole - room));
    }

    function holds(item: Item): bool {
        for (let ancestor = item; ancestor; ancestor = ancestor.parent)
            if (ancestor === holder)
                return true;
        return false;
    }

    function scrollBy(x: real, y: real): void {
        contentX = Math.max(0, Math.min(contentX + x, contentWidth - width));
        contentY = Math.max(0, Math.min(contentY + y, contentHeight - height));
    }

    contentWidth: Math.max(width, leastWidth)
    contentHeight: Math.max(height, leastHeight)
    // A press that moves is the content's: it selects, and moves what divides the window.
    interactive: false
    clip: contentWidth > width || contentHeight > height
    onFocusItemChanged: if (focusItem && clip && holds(focusItem)) reveal(focusItem)
    // A larger place shows no emptiness behind the end.
    onWidthChanged: scrollBy(0, 0)
    onHeightChanged: scrollBy(0, 0)

    Basic.ScrollBar.horizontal: SlimScrollBar {}
    Basic.ScrollBar.vertical: SlimScrollBar {}

    WheelHandler {
        enabled: area.clip
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        orientation: Qt.Horizontal
        target: null
        onWheel: event => area.scrollBy(-event.angleDelta.x / 2, 0)
    }

    WheelHandler {
        enabled: area.clip
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        target: null
        onWheel: event => area.scrollBy(0, -event.angleDelta.y / 2)
    }

    Item {
        id: holder

        width: area.contentWidth
        height: area.contentHeight
    }
}
