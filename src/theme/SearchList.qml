// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// The list of a SearchPicker, under the field that searches it.
ColumnLayout {
    id: list

    property string label: ""
    property string prompt: ""
    required property ChoiceModel choice

    /// Somebody chose a row, or the one that was chosen already.
    signal chosen()

    function choose(row: int): void {
        choice.choose(row);
        chosen();
    }

    /// Begins at the chosen row, or at the first that a search finds.
    function takeFocus(): void {
        view.currentIndex = Math.max(0, choice.chosenRow);
        view.positionViewAtIndex(view.currentIndex, ListView.Center);
        field.forceActiveFocus(Qt.PopupFocusReason);
        field.cursorPosition = field.length;
    }

    function move(rows: int): void {
        view.currentIndex = Math.max(0, Math.min(view.count - 1, view.currentIndex + rows));
    }

    spacing: 5

    InputField {
        id: field

        Layout.fillWidth: true
        label: list.prompt
        placeholderText: list.prompt
        // The focus stays here while the arrows go through the lines.
        Accessible.description: (view.currentItem as PopupMenuItem)?.text ?? "No matches"
        text: list.choice.search
        onTextChanged: {
            if (text === list.choice.search)
                return;
            list.choice.search = text;
            view.currentIndex = 0;
        }

        Keys.onUpPressed: list.move(-1)
        Keys.onDownPressed: list.move(1)
        Keys.onReturnPressed: if (view.count > 0) list.choose(view.currentIndex)
        Keys.onEnterPressed: if (view.count > 0) list.choose(view.currentIndex)
        Keys.onTabPressed: {}
        Keys.onBacktabPressed: {}
        Keys.onPressed: event => {
            const pages = { [Qt.Key_PageUp]: -8, [Qt.Key_PageDown]: 8 }[event.key];
            event.accepted = pages !== undefined;
            if (pages)
                list.move(pages);
        }

        Binding {
            target: field
            property: "text"
            value: list.choice.search
            restoreMode: Binding.RestoreNone
        }
    }

    ListView {
        id: view

        Layout.fillWidth: true
        Layout.preferredHeight: Math.min(Math.max(contentHeight, 32), 8 * 32)
        clip: true
        model: list.choice.rows // qmllint disable
        highlightMoveDuration: 0
        Accessible.role: Accessible.List
        Accessible.name: list.label
        Basic.ScrollBar.vertical: SlimScrollBar {}

        // The rows don't outlive their list.
        // qmllint disable unqualified
        delegate: PopupMenuItem {
            required property int index
            required property bool isChosen

            required text
            width: ListView.view ? ListView.view.width : implicitWidth
            elide: Text.ElideMiddle
            checkable: true
            chosen: isChosen
            highlighted: ListView.isCurrentItem || hovered
            focusPolicy: Qt.NoFocus
            Accessible.role: Accessible.ListItem
            onClicked: list.choose(index)
        }
        // qmllint enable unqualified

        PlainText {
            anchors { fill: parent; leftMargin: 10 }
            visible: view.count === 0
            verticalAlignment: Text.AlignVCenter
            text: "No matches"
            color: Theme.secondaryText
        }
    }
}
