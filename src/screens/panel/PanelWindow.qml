// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Window
import Elmworth.Theme
import Elmworth.Panel

/// The panel as a window without a frame: near the tray item where the desktop tells where that is, else in
/// the corner of the screen. Escape or a click elsewhere closes it.
Window {
    id: window

    required property PanelModel model

    property bool hasBeenActive: false
    /// When a click elsewhere closed it, in milliseconds since 1970.
    property double leftAt: 0

    readonly property Panel panel: content.item as Panel

    function openAt(point: point, isKnown: bool): void {
        if (isKnown)
            place.choose(point);
        else
            place.chooseCorner();
        model.refresh();
        hasBeenActive = false;
        content.active = true;
        place.stand(window);
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

    title: "Elmworth Panel"
    flags: Qt.Tool | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint
    width: 340
    height: Math.min(panel ? panel.implicitHeight : 320, Math.max(320, place.largestHeight))
    color: Theme.panelFill

    onHeightChanged: if (visible) place.stand(window)
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

    PanelPlace { id: place }

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
        sourceComponent: Panel {
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
