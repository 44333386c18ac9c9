// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// What all buttons have in common: they can be pressed by pointer, keyboard and assistive technology, and
/// say what they do. How they look is up to them; the three properties of their looks can be set to show a
/// state as a picture.
Basic.AbstractButton {
    id: button

    /// The tool tip.
    property string help: ""
    /// The name for assistive technology where it isn't the text.
    property string label: ""
    /// The button has been used since the pointer or the focus came: the tip would lie over what it opened.
    property bool isUsed: false
    /// Whether Return presses it, as Space does. What stands in a form leaves Return to whoever saves that.
    property bool takesReturn: true
    property bool looksHovered: hovered
    property bool looksPressed: down
    property bool looksFocused: visualFocus

    /// Does what a click does. Assistive technology may press what it has not been told is disabled.
    function press(): void {
        if (enabled)
            clicked();
    }

    function pressByReturn(event: KeyEvent): void {
        event.accepted = takesReturn;
        if (takesReturn)
            press();
    }

    hoverEnabled: true
    Accessible.role: Accessible.Button
    Accessible.name: label.length > 0 ? label : text
    Accessible.description: enabled ? help : "Unavailable"
    Accessible.onPressAction: press()

    onPressedChanged: if (pressed) isUsed = true
    onClicked: isUsed = true
    onHoveredChanged: isUsed = false
    onVisualFocusChanged: if (visualFocus) isUsed = false

    Keys.onReturnPressed: event => pressByReturn(event)
    Keys.onEnterPressed: event => pressByReturn(event)

    Loader {
        active: button.help.length > 0 && (button.hovered || button.visualFocus) && !button.isUsed

        // The tip doesn't outlive its button.
        // qmllint disable unqualified
        sourceComponent: HelpTip {
            parent: button
            text: button.help
            visible: true
        }
        // qmllint enable unqualified
    }
}
