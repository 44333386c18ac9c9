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
    property bool hasBeenActive: false

    /// Opens it beside the point, in pixels of the desktop; beside the upper right corner when there is none.
    function openAt(place: point, isKnown: bool): void {
        const left = Screen.virtualX, top = Screen.virtualY;
        const right = left + Screen.desktopAvailableWidth - width - gap;
        const bottom = top + Screen.desktopAvailableHeight - height - gap;
        x = isKnown ? Math.max(left + gap, Math.min(place.x - width / 2, right)) : right;
        y = isKnown ? Math.max(top + gap, Math.min(place.y + gap, bottom)) : top + gap;
        model.refresh();
        hasBeenActive = false;
        show();
        raise();
        requestActivate();
        panel.focusFirst();
    }

    title: "Elmworth Panel"
    flags: Qt.Tool | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint
    width: 340
    height: Math.min(panel.implicitHeight, Math.max(320, Screen.desktopAvailableHeight - 2 * gap))
    color: Theme.panelFill

    // Without a window manager it never becomes active, and must not close at once.
    onActiveChanged: {
        if (active)
            hasBeenActive = true;
        else if (hasBeenActive)
            close();
    }

    Shortcut {
        sequence: "Escape"
        onActivated: window.close()
    }

    MenuBarPanel {
        id: panel

        anchors.fill: parent
        model: window.model
        onDone: window.close()
    }

    Rectangle {
        anchors.fill: parent
        color: "transparent"
        border { width: 1; color: Theme.cardBorderStrong }
    }
}
