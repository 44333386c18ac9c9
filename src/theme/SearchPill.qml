// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// A field to search with.
FocusScope {
    id: pill

    property string prompt: ""
    property alias text: field.text
    property real fieldWidth: 150
    property bool looksFocused: field.activeFocus

    /// Leaves the field for whatever the screen had in focus before.
    signal escaped()
    /// Return was pressed.
    signal accepted()

    /// Makes the next letter typed part of the search.
    function takeFocus(): void {
        field.forceActiveFocus(Qt.ShortcutFocusReason);
    }

    /// Leaves what the text is bound to as it is.
    function clear(): void {
        field.clear();
    }

    implicitWidth: fieldWidth + 2 * 11 + 2 * 20
    implicitHeight: Math.ceil(field.implicitHeight) + 2 * 6

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: Theme.cardFill
        border {
            width: pill.looksFocused ? 2 : 1
            color: pill.looksFocused ? Theme.focusRing : Theme.cardBorderStrong
        }
    }

    Icon {
        id: glass

        anchors { left: parent.left; leftMargin: 11; verticalCenter: parent.verticalCenter }
        name: "magnifier"
        color: Theme.secondaryText
    }

    Basic.TextField {
        id: field

        anchors {
            left: glass.right; leftMargin: 4
            right: clear.left; rightMargin: 4
            verticalCenter: parent.verticalCenter
        }
        focus: true
        padding: 0
        background: null
        selectByMouse: true
        placeholderText: pill.prompt
        placeholderTextColor: Theme.tertiaryText
        color: Theme.primaryText
        selectionColor: Theme.selectionFill
        selectedTextColor: Theme.primaryText
        font { family: Theme.textFamily; pixelSize: Math.round(12.5) }
        Accessible.role: Accessible.EditableText
        Accessible.name: pill.prompt

        onAccepted: pill.accepted()
        Keys.onEscapePressed: { pill.clear(); pill.escaped(); }
    }

    IconButton {
        id: clear

        anchors { right: parent.right; rightMargin: 7; verticalCenter: parent.verticalCenter }
        visible: pill.text.length > 0
        size: 20
        iconName: "cross-circle"
        label: "Clear search"
        onClicked: { pill.clear(); field.forceActiveFocus(Qt.OtherFocusReason); }
    }
}
