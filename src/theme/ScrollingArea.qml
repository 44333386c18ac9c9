// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// Several lines to type into, as many as there are, in a frame that keeps its height.
Flickable {
    id: scroll

    property alias text: area.text
    property alias label: area.label
    property alias placeholderText: area.placeholderText
    readonly property alias area: area

    /// Ctrl+Return.
    signal submitted()

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
            event.accepted = isReturn && (event.modifiers & Qt.ControlModifier);
            if (event.accepted)
                scroll.submitted();
        }
    }
}
