// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A choice of very many, in a list that pops up and can be searched by typing. Space and Down open it, and
/// so does the first letter typed; Return is left to whoever stands around.
Item {
    id: picker

    property string label: ""
    /// What is chosen, or what stands there while nothing is.
    property string text: ""
    property bool isUnset: false
    /// What can be chosen: a model whose rows have a `text` and say whether they are the chosen one by
    /// `isChosen`.
    required property var rows
    property int chosenRow: -1
    /// What is searched for. Whoever has the rows sets it when `searched` tells, and shows fewer of them.
    property string search: ""
    property string prompt: ""
    property bool looksHovered: pointer.hovered
    property bool looksFocused: activeFocus

    signal chosen(int row)
    signal searched(string text)

    function openList(typed: string): void {
        if (!enabled || popup.visible)
            return;
        searched(typed);
        popup.open();
    }

    implicitWidth: 200
    implicitHeight: 32
    opacity: enabled ? 1 : 0.45
    activeFocusOnTab: true
    // A control's own role would be that of a plain button.
    Accessible.role: Accessible.ComboBox
    Accessible.name: label
    Accessible.description: text
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
        text: picker.text
        elide: Text.ElideMiddle
        color: picker.isUnset ? Theme.tertiaryText : Theme.primaryText
        Accessible.ignored: true
    }

    Icon {
        id: arrows

        anchors { right: parent.right; rightMargin: 8; verticalCenter: parent.verticalCenter }
        name: "chevron.up.chevron.down"
        color: Theme.secondaryText
    }

    ChoicePopup {
        id: popup

        y: picker.height + 4
        width: Math.max(picker.width, 240)
        label: picker.label
        prompt: picker.prompt
        rows: picker.rows
        chosenRow: picker.chosenRow
        search: picker.search
        onSearched: text => picker.searched(text)
        onChosen: row => picker.chosen(row)
        onClosed: picker.forceActiveFocus(Qt.TabFocusReason)
    }
}
