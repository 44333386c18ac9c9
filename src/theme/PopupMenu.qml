// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Templates as T
import Elmworth.Theme

/// A menu. Submenus are menus inside it. A click outside closes it, and does no more.
Basic.Menu {
    id: menu

    /// Wide enough for its longest item.
    readonly property real widest: {
        let result = 0;
        for (let i = 0; i < count; ++i)
            result = Math.max(result, itemAt(i).implicitWidth);
        return result;
    }

    /// Where the first item stands that can be chosen; 0 when none can.
    function firstEnabled(): int {
        for (let i = 0; i < count; ++i)
            if (itemAt(i).enabled)
                return i;
        return 0;
    }

    /// Likewise the last; -1 when none can.
    function lastEnabled(): int {
        for (let i = count - 1; i >= 0; --i)
            if (itemAt(i).enabled)
                return i;
        return -1;
    }

    width: Math.min(360, Math.max(180, widest) + leftPadding + rightPadding)
    padding: 5
    margins: 8
    overlap: 4
    delegate: PopupMenuItem {}
    // A submenu leaves the menu around it to be clicked.
    modal: !(parent instanceof PopupMenuItem)

    // Nothing to see, but it keeps a click from what lies below.
    T.Overlay.modal: Item {}

    contentItem: ListView {
        implicitHeight: contentHeight
        model: menu.contentModel
        interactive: Window.window ? contentHeight + menu.topPadding + menu.bottomPadding > Window.window.height : false
        clip: true
        currentIndex: menu.currentIndex
        focus: true
        keyNavigationEnabled: false
        Basic.ScrollIndicator.vertical: Basic.ScrollIndicator {}

        // Before any line is chosen, the arrow leads to the last one.
        Keys.onUpPressed: event => {
            event.accepted = menu.currentIndex < 0;
            if (event.accepted)
                menu.currentIndex = menu.lastEnabled();
        }
    }

    background: Rectangle {
        radius: Theme.rowRadius
        color: Theme.cardFill
        border { width: 1; color: Theme.cardBorderStrong }

        SoftShadow {
            corner: Theme.rowRadius
            strength: 0.24
        }
    }

    // It goes at once: while a menu fades out, the window behind it gets no keys.
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.easing }
    }
}
