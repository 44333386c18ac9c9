// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// The day of `date`, to type, to step, or to pick from a month. Alt+Down shows the month.
StepField {
    id: field

    required property DateTimeInput date

    function openCalendar(): void {
        if (!enabled)
            return;
        date.showMonth();
        popup.open();
    }

    input: field.date.day
    implicitWidth: 150
    rightPadding: 34

    Keys.onDownPressed: event => {
        event.accepted = event.modifiers & Qt.AltModifier;
        if (event.accepted)
            openCalendar();
    }

    IconButton {
        anchors { right: parent.right; rightMargin: 3; verticalCenter: parent.verticalCenter }
        size: 26
        systemImage: "calendar"
        label: field.label + " calendar"
        help: "Choose from a calendar (Alt+Down)"
        focusPolicy: Qt.NoFocus
        onClicked: popup.visible ? popup.close() : field.openCalendar()
    }

    Basic.Popup {
        id: popup

        y: field.height + 4
        padding: 12
        margins: 8
        focus: true
        closePolicy: Basic.Popup.CloseOnEscape | Basic.Popup.CloseOnPressOutsideParent
        onOpened: calendar.focusCurrent()
        onClosed: field.forceActiveFocus(Qt.PopupFocusReason)

        MonthCalendar {
            id: calendar

            anchors.fill: parent
            model: field.date.month
            label: field.label
            onChosen: popup.close()
        }

        background: Rectangle {
            radius: Theme.cardRadius
            color: Theme.cardFill
            border { width: 1; color: Theme.cardBorderStrong }

            SoftShadow {
                corner: Theme.cardRadius
                strength: 0.24
            }
        }
    }
}
