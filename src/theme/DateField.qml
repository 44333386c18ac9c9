// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// The day of `date`, to type, to step, or to pick from a month. Alt+Down shows the month.
StepField {
    id: field

    required property DateTimeInput date

    function openCalendar(): void {
        if (!enabled)
            return;
        date.showMonth();
        (calendar.make() as CalendarPopup).open();
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
        iconName: "calendar"
        label: field.label + " calendar"
        help: "Choose from a calendar (Alt+Down)"
        focusPolicy: Qt.NoFocus
        onClicked: {
            const popup = calendar.item as CalendarPopup;
            popup?.visible ? popup.close() : field.openCalendar();
        }
    }

    OnDemand {
        id: calendar

        // The popup doesn't outlive its field.
        // qmllint disable unqualified
        sourceComponent: CalendarPopup {
            parent: field
            y: field.height + 4
            date: field.date
            label: field.label
            onClosed: field.forceActiveFocus(Qt.PopupFocusReason)
        }
        // qmllint enable unqualified
    }
}
