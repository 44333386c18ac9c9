// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Window
import Elmworth.Theme
import Elmworth.Tracking

/// The panel as a window without a frame: near the tray item where the desktop tells where that is, else in
/// the corner of the screen. Escape or a click elsewhere closes it.
Window {
    id: window

    required property MenuBarPanelModel model

    readonly property int gap: 8
    /// Beside it stands the panel, in pixels of the desktop; absent in the upper right corner.
    property var place: null
    property bool hasBeenActive: false
    /// When a click elsewhere closed it, in milliseconds since 1970.
    property double leftAt: 0

    readonly property MenuBarPanel panel: content.item as MenuBarPanel

    function openAt(point: point, isKnown: bool): void {
        place = isKnown ? point : null;
        model.refresh();
        hasBeenActive = false;
        content.active = true;
        stand();
        show();
        raise();
        requestActivate();
        panel.focusFirst();
    }

    /// What a press on the tray item does: it opens the panel or closes it. The press itself may have taken the
    /// focus from the panel, and closed it, a moment before.
    function toggleAt(point: point): void {
        const hasJustLeft = Date.now() - leftAt < 400;
        leftAt = 0;
        if (visible)
            close();
        else if (!hasJustLeft)
            openAt(point, true);
    }

    /// Under a bar at the top of the desktop, and over one at the bottom.
    function stand(): void {
        const left = Screen.virtualX + gap, top = Screen.virtualY + gap;
        const right = Screen.virtualX + Screen.desktopAvailableWidth - width - gap;
        const bottom = Screen.virtualY + Screen.desktopAvailableHeight - height - gap;
        const hangs = !place || place.y < Screen.virtualY + Screen.height / 2;
        const wanted = !place ? top : hangs ? place.y + gap : place.y - gap - height;
        x = place ? Math.max(left, Math.min(place.x - width / 2, right)) : right;
        y = Math.max(top, Math.min(wanted, bottom));
    }

    title: "Elmworth Panel"
    flags: Qt.Tool | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint
    width: 340
    height: Math.min(panel ? panel.implicitHeight : 320, Math.max(320, Screen.desktopAvailableHeight - 2 * gap))
    color: Theme.panelFill

    onHeightChanged: if (visible) stand()
    onVisibleChanged: {
        if (visible)
            return;
        content.active = false;
        model.rest();
    }

    // Without a window manager it never becomes active, and must not close at once.
    onActiveChanged: {
        if (active) {
            hasBeenActive = true;
        } else if (hasBeenActive && visible) {
            leftAt = Date.now();
            close();
        }
    }

    Shortcut {
        sequence: "Escape"
        onActivated: if (!window.panel?.endSearch()) window.close()
    }

    // Each opening begins anew: nothing is hovered, scrolled or searched for.
    Loader {
        id: content

        anchors.fill: parent
        active: false
        // The panel doesn't outlive its window.
        // qmllint disable unqualified
        sourceComponent: MenuBarPanel {
            model: window.model
            onDone: window.close()
        }
        // qmllint enable unqualified
    }

    Rectangle {
        anchors.fill: parent
        color: "transparent"
        border { width: 1; color: Theme.cardBorderStrong }
    }
}
