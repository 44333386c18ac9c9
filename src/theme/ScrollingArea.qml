// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// Several lines to type into, as many as there are, in a frame that keeps its height. Where they can only be read,
/// the arrows, Page Up, Page Down, Home and End scroll.
Flickable {
    id: scroll

    property alias text: area.text
    property alias label: area.label
    property alias placeholderText: area.placeholderText
    property alias readOnly: area.readOnly
    readonly property alias area: area

    /// Ctrl+Return.
    signal submitted()

    /// Scrolls as `key` says. False for a key that doesn't scroll.
    function scrollBy(key: int): bool {
        const page = height - area.topPadding - area.bottomPadding;
        const line = area.cursorRectangle.height;
        const moves = {
            [Qt.Key_Up]: -line,
            [Qt.Key_Down]: line,
            [Qt.Key_PageUp]: -page,
            [Qt.Key_PageDown]: page,
            [Qt.Key_Home]: -contentHeight,
            [Qt.Key_End]: contentHeight,
        };
        const move = moves[key];
        if (move === undefined)
            return false;
        contentY = Math.max(0, Math.min(contentHeight - height, contentY + move));
        return true;
    }

    implicitWidth: area.implicitWidth
    implicitHeight: 96
    boundsBehavior: Flickable.StopAtBounds
    clip: true
    Accessible.ignored: true
    Basic.ScrollBar.vertical: SlimScrollBar {}

    Basic.TextArea.flickable: InputArea {
        id: area

        rightPadding: 14

        Keys.onPressed: event => {
            const isReturn = event.key === Qt.Key_Return || event.key === Qt.Key_Enter;
            const submits = isReturn && (event.modifiers & Qt.ControlModifier);
            event.accepted = submits || (area.readOnly && scroll.scrollBy(event.key));
            if (submits)
                scroll.submitted();
        }
    }
}
