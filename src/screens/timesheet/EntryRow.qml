// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Timesheet

/// An entry in a day's card.
Item {
    id: row

    required property int index
    required property string title
    required property string detail
    required property string total
    required property string projectColor
    required property string notes
    required property bool hasNotes
    required property string timeRange
    required property bool isBilled
    required property bool isRunning
    required property bool canContinue
    required property bool isSelected
    required property bool isLastOfDay
    required property string summary
    property real margin: 24
    /// Whether the keyboard acts on this line.
    property bool isCurrent: false
    /// Whether a menu is open on this line.
    property bool hasMenu: false
    property var billedHelp: null

    readonly property bool hovered: hover.hovered

    signal clicked(int row, int modifiers)
    signal doubleClicked(int row)
    signal menuRequested(int row, real x, real y)
    signal continueRequested(int row)

    height: 52
    Accessible.role: Accessible.ListItem
    Accessible.name: summary
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.focused: isCurrent
    Accessible.onPressAction: clicked(index, Qt.NoModifier)

    CardSlice {
        anchors { fill: parent; leftMargin: row.margin; rightMargin: row.margin }
        isLast: row.isLastOfDay
    }

    Rectangle {
        anchors {
            fill: parent
            leftMargin: row.margin + 6; rightMargin: row.margin + 6
            topMargin: 1; bottomMargin: row.isLastOfDay ? 6 : 1
        }
        radius: Theme.rowRadius
        visible: row.isSelected || row.hovered || row.hasMenu
        color: row.isSelected ? Qt.alpha(Theme.accentViolet, Theme.dark ? 0.2 : 0.12) : Theme.cardFillHover
        border { width: row.isSelected ? 1 : 0; color: Qt.alpha(Theme.accentViolet, row.isCurrent ? 1 : 0.55) }
    }

    HoverHandler {
        id: hover
    }

    MouseArea {
        anchors { fill: parent; leftMargin: row.margin; rightMargin: row.margin }
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onPressed: mouse => {
            if (mouse.button === Qt.RightButton)
                row.menuRequested(row.index, mouse.x + row.margin, mouse.y);
            else
                row.clicked(row.index, mouse.modifiers);
        }
        onDoubleClicked: mouse => {
            if (mouse.button === Qt.LeftButton)
                row.doubleClicked(row.index);
        }
    }

    Item {
        id: content

        anchors {
            fill: parent
            leftMargin: row.margin + 16; rightMargin: row.margin + 16
            bottomMargin: row.isLastOfDay ? 5 : 0
        }

        ColorSign {
            id: bar

            anchors.verticalCenter: parent.verticalCenter
            width: 4
            height: 30
            tint: Tint.fromHex(row.projectColor)
        }

        PlainText {
            id: title

            anchors { left: bar.right; leftMargin: 12; bottom: parent.verticalCenter; bottomMargin: 1 }
            width: Math.min(Math.ceil(implicitWidth), (end.x - x - 8) * (row.detail.length > 0 ? 0.62 : 1))
            text: row.title
            font.weight: Font.Medium
            Accessible.ignored: true
        }

        PlainText {
            anchors {
                left: title.right; leftMargin: 8
                right: end.left; rightMargin: 8
                baseline: title.baseline
            }
            visible: row.detail.length > 0
            text: row.detail
            size: Theme.calloutSize
            color: Theme.secondaryText
            Accessible.ignored: true
        }

        PlainText {
            anchors {
                left: title.left
                right: end.left; rightMargin: 8
                top: parent.verticalCenter; topMargin: 2
            }
            text: row.notes
            size: Theme.calloutSize
            color: row.hasNotes ? Theme.secondaryText : Theme.tertiaryText
            font.italic: !row.hasNotes
            Accessible.ignored: true
        }

        Row {
            id: end

            anchors { right: time.left; rightMargin: 12; verticalCenter: parent.verticalCenter }
            spacing: 8

            // Its place is kept, so that nothing moves under the pointer.
            Loader {
                active: row.canContinue && (row.hovered || row.isCurrent)
                visible: row.canContinue
                width: 28
                height: 28
                anchors.verticalCenter: parent.verticalCenter

                // The button doesn't outlive its row.
                // qmllint disable unqualified
                sourceComponent: CircleIconButton {
                    focusPolicy: Qt.NoFocus
                    iconName: "play"
                    help: "Continue tracking this"
                    label: "Continue tracking"
                    onClicked: row.continueRequested(row.index)
                }
                // qmllint enable unqualified
            }

            Loader {
                active: row.isBilled
                visible: active
                anchors.verticalCenter: parent.verticalCenter

                // The chip doesn't outlive its row.
                // qmllint disable unqualified
                sourceComponent: BilledChip {
                    helpText: row.billedHelp
                    line: row.index
                }
                // qmllint enable unqualified
            }

            Loader {
                active: row.isRunning
                visible: active
                anchors.verticalCenter: parent.verticalCenter
                sourceComponent: Chip {
                    text: "Live"
                    icon: "record"
                    tint: Theme.coralGradient[1]
                    Accessible.ignored: true
                }
            }
        }

        PlainText {
            id: time

            anchors { right: total.left; verticalCenter: parent.verticalCenter }
            width: Math.max(148, implicitWidth)
            horizontalAlignment: Text.AlignRight
            text: row.timeRange
            size: Theme.calloutSize
            font.family: Theme.tabularFamily
            color: Theme.secondaryText
            Accessible.ignored: true
        }

        PlainText {
            id: total

            anchors { right: parent.right; verticalCenter: parent.verticalCenter }
            width: Math.max(64, implicitWidth + 16)
            horizontalAlignment: Text.AlignRight
            text: row.total
            font.family: Theme.tabularFamily
            font.weight: Font.Medium
            Accessible.ignored: true
        }
    }
}
