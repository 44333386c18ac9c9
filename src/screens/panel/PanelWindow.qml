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
    /// Whether the pointer has been over it.
    property bool wasVisited: false
    /// When a click elsewhere closed it, in milliseconds since 1970.
    property double leftAt: 0

    readonly property Panel panel: content.item as Panel
    /// As high as its content, as far as its screen has room.
    readonly property size room: Qt.size(340, Math.min(panel ? panel.implicitHeight : 320, Math.max(320, place.largestHeight)))

    function openAt(point: point, isKnown: bool): void {
        if (isKnown)
            place.choose(point);
        else
            place.chooseCorner();
        model.refresh();
        hasBeenActive = false;
        wasVisited = false;
        content.active = true;
        place.stand(window, room);
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

    function leave(): void {
        leftAt = Date.now();
        close();
    }

    title: "Elmworth Panel"
    flags: Qt.Tool | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint
    color: Theme.panelFill

    onRoomChanged: if (visible) place.stand(window, room)
    onVisibleChanged: {
        if (visible)
            return;
        leaving.stop();
        content.active = false;
        model.rest();
    }

    // Without a window manager it never becomes active, and must not close at once.
    onActiveChanged: {
        if (active) {
            hasBeenActive = true;
            leaving.stop();
        } else if (hasBeenActive && visible) {
            const patience = place.patience(wasVisited);
            leaving.interval = patience;
            patience > 0 ? leaving.restart() : leave();
        }
    }

    PanelPlace { id: place }

    Timer {
        id: leaving

        onTriggered: window.leave()
    }

    HoverHandler { onHoveredChanged: window.wasVisited = window.wasVisited || hovered }

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
