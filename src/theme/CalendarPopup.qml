// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Templates as T
import Elmworth.Theme

/// A month over the window, to pick the day of `date` from. A click outside closes it, and does no more.
Basic.Popup {
    id: popup

    required property DateTimeInput date
    property string label: ""

    padding: 12
    margins: 8
    focus: true
    modal: true
    closePolicy: Basic.Popup.CloseOnEscape | Basic.Popup.CloseOnPressOutside
    onOpened: calendar.focusCurrent()

    // Nothing to see, but it keeps a click from what lies below.
    T.Overlay.modal: Item {}

    MonthCalendar {
        id: calendar

        anchors.fill: parent
        model: popup.date.month
        label: popup.label
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
