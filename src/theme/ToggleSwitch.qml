// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// A switch that is on or off, with its text before it.
Basic.Switch {
    id: toggleSwitch

    property bool looksFocused: visualFocus

    /// Does what a click does, unless it is disabled.
    function press(): void {
        if (!enabled)
            return;
        toggle();
        toggled();
    }

    padding: 0
    spacing: 10
    implicitHeight: 22
    implicitWidth: text.length > 0 ? Math.ceil(implicitContentWidth) : 38
    opacity: enabled ? 1 : 0.45
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.onPressAction: press()
    Accessible.onToggleAction: press()

    indicator: Rectangle {
        x: toggleSwitch.width - width
        y: Math.round((toggleSwitch.height - height) / 2)
        width: 38
        height: 22
        radius: 11
        color: toggleSwitch.checked ? Theme.accentViolet : Qt.alpha(Theme.primaryText, Theme.dark ? 0.36 : 0.5)

        Rectangle {
            x: toggleSwitch.checked ? parent.width - width - 3 : 3
            y: 3
            width: 16
            height: 16
            radius: 8
            color: "#FFFFFF"

            Behavior on x { NumberAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
        }

        FocusRing {
            shows: toggleSwitch.looksFocused
            corner: parent.radius
        }

        Behavior on color { ColorAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
    }

    contentItem: PlainText {
        rightPadding: 38 + toggleSwitch.spacing
        verticalAlignment: Text.AlignVCenter
        text: toggleSwitch.text
        Accessible.ignored: true
    }
}
