// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// The page of a month to pick a day from. Arrow keys move by days and weeks, Home and End within the week,
/// Page Up and Page Down by months, with Shift by years; Return or Space chooses.
FocusScope {
    id: calendar

    required property MonthCalendarModel model
    property string label: ""

    readonly property int cellSize: 34

    signal chosen()

    function focusCurrent(): void {
        const cell = cells.itemAt(model.current);
        if (cell)
            cell.forceActiveFocus(Qt.TabFocusReason);
    }

    function choose(position: int): void {
        model.choose(position);
        chosen();
    }

    implicitWidth: page.implicitWidth
    implicitHeight: page.implicitHeight
    Accessible.role: Accessible.Grouping
    Accessible.name: label.length > 0 ? label + ", " + model.title : model.title

    Keys.onPressed: event => {
        const years = event.modifiers & Qt.ShiftModifier ? 12 : 1;
        const moves = {
            [Qt.Key_Left]: () => model.moveByDays(-1),
            [Qt.Key_Right]: () => model.moveByDays(1),
            [Qt.Key_Up]: () => model.moveByDays(-7),
            [Qt.Key_Down]: () => model.moveByDays(7),
            [Qt.Key_Home]: () => model.moveToWeekStart(),
            [Qt.Key_End]: () => model.moveToWeekEnd(),
            [Qt.Key_PageUp]: () => model.moveByMonths(-years),
            [Qt.Key_PageDown]: () => model.moveByMonths(years),
        };
        const move = moves[event.key];
        event.accepted = move !== undefined;
        if (move) {
            move();
            focusCurrent();
        }
    }

    ColumnLayout {
        id: page

        anchors.fill: parent
        spacing: 6

        RowLayout {
            Layout.fillWidth: true
            spacing: 2

            PlainText {
                Layout.fillWidth: true
                Layout.leftMargin: 8
                text: calendar.model.title
                size: 14
                font.weight: Font.DemiBold
            }

            LinkButton {
                Layout.rightMargin: 8
                text: "Today"
                onClicked: { calendar.model.moveToToday(); calendar.focusCurrent(); }
            }

            IconButton {
                iconName: "chevron-left"
                label: "Previous month"
                onClicked: calendar.model.moveByMonths(-1)
            }

            IconButton {
                iconName: "chevron-right"
                label: "Next month"
                onClicked: calendar.model.moveByMonths(1)
            }
        }

        Row {
            Repeater {
                model: calendar.model.weekdays

                // What stands on the page doesn't outlive it.
                // qmllint disable unqualified
                PlainText {
                    required property int index
                    required property string modelData

                    width: calendar.cellSize
                    horizontalAlignment: Text.AlignHCenter
                    text: modelData
                    size: Theme.captionSize
                    color: Theme.secondaryText
                    Accessible.name: calendar.model.weekdayNames[index]
                }
                // qmllint enable unqualified
            }
        }

        Grid {
            columns: 7

            Repeater {
                id: cells

                model: calendar.model.days // qmllint disable

                // qmllint disable unqualified
                MonthDayCell {
                    width: calendar.cellSize
                    height: calendar.cellSize
                    onClicked: calendar.choose(index)
                }
                // qmllint enable unqualified
            }
        }
    }
}
