// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// A box to tick, with its text.
Basic.CheckBox {
    id: box

    property bool looksHovered: hovered
    property bool looksFocused: visualFocus

    /// Does what a click does, unless it is disabled.
    function press(): void {
        if (!enabled)
            return;
        toggle();
        toggled();
    }

    padding: 0
    spacing: 8
    implicitHeight: 20
    opacity: enabled ? 1 : 0.45
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.onPressAction: press()
    Accessible.onToggleAction: press()

    indicator: Rectangle {
        x: 0
        y: Math.round((box.height - height) / 2)
        width: 18
        height: 18
        radius: 5
        color: box.checked ? Theme.inverseText : box.looksHovered ? Theme.cardFillHover : Theme.cardFill
        border { width: box.checked ? 0 : 1; color: Theme.tertiaryText }

        Icon {
            anchors.centerIn: parent
            visible: box.checked
            name: "check"
            size: 14
            color: Theme.inverseFill
        }

        FocusRing {
            shows: box.looksFocused
            corner: parent.radius
        }
    }

    contentItem: PlainText {
        leftPadding: 18 + box.spacing
        verticalAlignment: Text.AlignVCenter
        text: box.text
        Accessible.ignored: true
    }
}
