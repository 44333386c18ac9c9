// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// A list to choose one of, with a field that narrows it down where it is long. The rows have a name and say
/// whether they are chosen; the field has the focus, and the arrow keys move over the rows.
Basic.Popup {
    id: popup

    property string label: ""
    property var rows: null
    property bool searchShown: false
    property string search: ""

    signal searchEdited(string text)
    signal chosen(int row)

    function choose(row: int): void {
        if (row < 0 || row >= list.count)
            return;
        close();
        chosen(row);
    }

    width: 280
    height: Math.min(contentItem.implicitHeight + 2 * padding, 380)
    padding: 5
    margins: 8
    focus: true
    onAboutToShow: { searchEdited(""); list.currentIndex = 0; }
    onOpened: searchShown ? field.forceActiveFocus(Qt.PopupFocusReason) : list.forceActiveFocus(Qt.PopupFocusReason)

    contentItem: Item {
        implicitHeight: Math.max(32, list.contentHeight) + (popup.searchShown ? field.height + 6 : 0)

        InputField {
            id: field

            width: parent.width
            visible: popup.searchShown
            label: "Search"
            placeholderText: "Search"
            text: popup.search
            onTextEdited: { popup.searchEdited(text); list.currentIndex = 0; }
            onAccepted: popup.choose(list.currentIndex)
            Keys.onUpPressed: list.decrementCurrentIndex()
            Keys.onDownPressed: list.incrementCurrentIndex()
        }

        ListView {
            id: list

            anchors {
                left: parent.left; right: parent.right; bottom: parent.bottom
                top: popup.searchShown ? field.bottom : parent.top
                topMargin: popup.searchShown ? 6 : 0
            }
            clip: true
            model: popup.visible ? popup.rows : null
            currentIndex: 0
            highlightMoveDuration: 0
            keyNavigationEnabled: true
            reuseItems: true
            Accessible.role: Accessible.List
            Accessible.name: popup.label
            Keys.onReturnPressed: popup.choose(currentIndex)
            Keys.onEnterPressed: popup.choose(currentIndex)
            Keys.onSpacePressed: popup.choose(currentIndex)
            Basic.ScrollBar.vertical: SlimScrollBar {}

            delegate: Basic.ItemDelegate {
                id: choice

                required property int index
                required property string name
                required property bool isChosen

                width: ListView.view ? ListView.view.width : 0
                height: 32
                padding: 0
                text: name
                highlighted: ListView.isCurrentItem
                focusPolicy: Qt.NoFocus
                Accessible.role: Accessible.ListItem
                Accessible.name: name
                Accessible.selectable: true
                Accessible.selected: isChosen
                Accessible.onPressAction: clicked()
                // The rows don't outlive their popup.
                // qmllint disable unqualified
                onClicked: popup.choose(index)
                // qmllint enable unqualified

                contentItem: Item {
                    SystemImage {
                        id: mark

                        anchors { left: parent.left; leftMargin: 10; verticalCenter: parent.verticalCenter }
                        name: "checkmark"
                        opacity: choice.isChosen ? 1 : 0
                    }

                    PlainText {
                        anchors {
                            left: mark.right; leftMargin: 8
                            right: parent.right; rightMargin: 10
                            verticalCenter: parent.verticalCenter
                        }
                        text: choice.name
                        Accessible.ignored: true
                    }
                }

                background: Rectangle {
                    radius: 6
                    color: choice.highlighted || choice.hovered ? Theme.cardBorder : "transparent"
                }
            }

            PlainText {
                anchors { left: parent.left; leftMargin: 10; top: parent.top; topMargin: 8 }
                visible: list.count === 0
                text: "Nothing found."
                color: Theme.secondaryText
            }
        }
    }

    background: Rectangle {
        radius: Theme.rowRadius
        color: Theme.cardFill
        border { width: 1; color: Theme.cardBorderStrong }

        SoftShadow {
            corner: Theme.rowRadius
            strength: 0.24
        }
    }
}
