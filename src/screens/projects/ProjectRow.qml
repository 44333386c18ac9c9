// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Projects

/// A project, on a card of its own.
Item {
    id: row

    required property int index
    required property string title
    required property string rate
    required property string summary
    required property string time
    required property string projectColor
    required property bool isArchived
    required property bool hasCustomRate
    required property bool isRunning
    required property bool hasBudget
    required property real budgetFraction
    required property int budgetLevel
    required property string budgetHelp
    required property string budgetLabel
    property real margin: 24
    property bool isSelected: false
    /// Whether the keyboard acts on this line.
    property bool isCurrent: false

    readonly property bool hovered: card.hovering
    readonly property bool offersStart: !isRunning && !isArchived && (hovered || isSelected)

    signal clicked(int row, int modifiers)
    signal doubleClicked(int row)
    signal menuRequested(int row, real x, real y)
    signal startRequested(int row)

    height: 72
    Accessible.role: Accessible.ListItem
    Accessible.name: summary
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.focused: isCurrent
    Accessible.onPressAction: clicked(index, Qt.NoModifier)

    HoverCard {
        id: card

        anchors { fill: parent; leftMargin: row.margin; rightMargin: row.margin; bottomMargin: 8 }
        corner: Theme.rowRadius
        selected: row.isSelected
        padding: 0

        Item {
            anchors.fill: parent

            Rectangle {
                anchors.fill: parent
                visible: row.isSelected
                radius: Theme.rowRadius
                color: Qt.alpha(Theme.accentViolet, Theme.dark ? 0.2 : 0.12)
                border { width: 1; color: Qt.alpha(Theme.accentViolet, row.isCurrent ? 1 : 0.55) }
            }

            MouseArea {
                anchors.fill: parent
                acceptedButtons: Qt.LeftButton | Qt.RightButton
                onPressed: mouse => {
                    row.clicked(row.index, mouse.modifiers);
                    if (mouse.button === Qt.RightButton)
                        row.menuRequested(row.index, mouse.x + row.margin, mouse.y);
                }
                onDoubleClicked: mouse => {
                    if (mouse.button === Qt.LeftButton)
                        row.doubleClicked(row.index);
                }
            }

            ColorSign {
                id: mark

                anchors { left: parent.left; leftMargin: 14; verticalCenter: parent.verticalCenter }
                width: 4
                height: 36
                tint: Tint.fromHex(row.projectColor)
                opacity: row.isArchived ? 0.4 : 1
            }

            Column {
                id: lines

                anchors { left: mark.right; leftMargin: 14; right: rate.left; rightMargin: 16; verticalCenter: parent.verticalCenter }
                spacing: 4

                Item {
                    width: parent.width
                    height: name.implicitHeight

                    PlainText {
                        id: name

                        width: Math.min(Math.ceil(implicitWidth), parent.width - (chips.width > 0 ? chips.width + 8 : 0))
                        text: row.title
                        color: row.isArchived ? Theme.secondaryText : Theme.primaryText
                        font.weight: Font.Medium
                        Accessible.ignored: true
                    }

                    Row {
                        id: chips

                        anchors { left: name.right; leftMargin: 8; verticalCenter: parent.verticalCenter }
                        spacing: 6

                        Loader {
                            active: row.isArchived
                            visible: active
                            sourceComponent: Chip {
                                text: "Archived"
                                tint: Theme.grayGradient[0]
                                Accessible.ignored: true
                            }
                        }

                        Loader {
                            active: row.hasCustomRate
                            visible: active
                            sourceComponent: Chip {
                                text: "Custom rate"
                                tint: Theme.accentBlue
                                Accessible.ignored: true
                            }
                        }
                    }
                }

                PlainText {
                    width: parent.width
                    text: row.time
                    size: Theme.calloutSize
                    font.family: Theme.tabularFamily
                    color: Theme.secondaryText
                    Accessible.ignored: true
                }

                Item {
                    width: Math.min(parent.width, 360)
                    height: 6
                    visible: row.hasBudget
                    opacity: row.isArchived ? 0.5 : 1

                    Loader {
                        anchors { fill: parent; topMargin: 2 }
                        active: row.hasBudget

                        // The bar doesn't outlive its row.
                        // qmllint disable unqualified
                        sourceComponent: BudgetBar {
                            fraction: row.budgetFraction
                            level: row.budgetLevel
                            help: row.budgetHelp
                            label: row.budgetLabel
                        }
                        // qmllint enable unqualified
                    }
                }
            }

            PlainText {
                id: rate

                anchors { right: end.left; verticalCenter: parent.verticalCenter }
                text: row.rate
                font.family: Theme.tabularFamily
                color: row.isArchived ? Theme.secondaryText : Theme.primaryText
                Accessible.ignored: true
            }

            // Its place is kept, so that nothing moves under the pointer.
            Item {
                id: end

                anchors { right: parent.right; rightMargin: 14; verticalCenter: parent.verticalCenter }
                width: 84
                height: 28

                Loader {
                    anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                    active: row.isRunning
                    visible: active
                    sourceComponent: Chip {
                        text: "Running"
                        icon: "record"
                        tint: Theme.coralGradient[1]
                        Accessible.ignored: true
                    }
                }

                Loader {
                    anchors { right: parent.right; verticalCenter: parent.verticalCenter }
                    active: row.offersStart
                    visible: active

                    // The button doesn't outlive its row.
                    // qmllint disable unqualified
                    sourceComponent: CircleIconButton {
                        focusPolicy: Qt.NoFocus
                        iconName: "play"
                        help: "Start tracking " + row.title
                        label: "Start " + row.title
                        onClicked: row.startRequested(row.index)
                    }
                    // qmllint enable unqualified
                }
            }
        }
    }
}
