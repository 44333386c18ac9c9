// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Templates as T
import Elmworth.Theme

/// Shows a sheet over the window until it is closed; Escape closes it. Its content is a SheetScaffold.
Basic.Popup {
    id: popup

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    modal: true
    focus: true
    padding: 0
    margins: 16
    closePolicy: Basic.Popup.CloseOnEscape
    background: SoftShadow {
        anchors.fill: undefined
        corner: Theme.sheetRadius
        strength: 0.24
        blur: 24
        offset: 8
    }

    T.Overlay.modal: Rectangle {
        color: Theme.sheetVeil

        Behavior on opacity { NumberAnimation { duration: Theme.easing } }
    }

    // It goes at once: while a sheet fades out, the window behind it gets no keys.
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.easing }
    }
}
