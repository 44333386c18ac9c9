// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A choice of very many, in a list that pops up and can be searched by typing. Space and Down open it, and
/// so does the first letter typed; Return is left to whoever stands around.
Item {
    id: picker

    property string label: ""
    required property ChoiceModel choice
    property string prompt: ""
    property bool looksHovered: pointer.hovered
    property bool looksFocused: activeFocus

    function openList(typed: string): void {
        if (!enabled || popup.visible)
            return;
        choice.search = typed;
        popup.open();
    }

    implicitWidth: 200
    implicitHeight: 32
    opacity: enabled ? 1 : 0.45
    activeFocusOnTab: true
    // A control's own role would be that of a plain button.
    Accessible.role: Accessible.ComboBox
    Accessible.name: label
    Accessible.description: choice.title
    Accessible.focusable: true
    Accessible.onPressAction: openList("")

    Keys.onDownPressed: openList("")
    Keys.onUpPressed: openList("")
    Keys.onSpacePressed: openList("")
    Keys.onPressed: event => {
        const isLetter = event.text.length > 0 && event.text > " " && event.text !== "\u007f";
        event.accepted = isLetter && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier));
        if (event.accepted)
            openList(event.text);
    }

    HoverHandler { id: pointer }

    TapHandler {
        gesturePolicy: TapHandler.WithinBounds
        onTapped: popup.visible ? popup.close() : picker.openList("")
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.fieldRadius
        color: picker.looksHovered ? Theme.cardFillHover : Theme.cardFill
        border { width: 1; color: Theme.cardBorderStrong }

        FocusRing {
            shows: picker.looksFocused
            corner: Theme.fieldRadius
        }
    }

    PlainText {
        anchors { left: parent.left; leftMargin: 10; right: arrows.left; rightMargin: 6; verticalCenter: parent.verticalCenter }
        text: picker.choice.title
        elide: Text.ElideMiddle
        color: !picker.choice.isSet ? Theme.tertiaryText : Theme.primaryText
        Accessible.ignored: true
    }

    Icon {
        id: arrows

        anchors { right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
        name: "chevrons-up-down"
        color: Theme.secondaryText
    }

    ChoicePopup {
        id: popup

        y: picker.height + 4
        width: Math.max(picker.width, 240)
        label: picker.label
        prompt: picker.prompt
        choice: picker.choice
        onClosed: picker.forceActiveFocus(Qt.TabFocusReason)
    }
}
