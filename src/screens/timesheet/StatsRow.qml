// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Timesheet

/// What the listed time comes to.
RowLayout {
    id: row

    required property StatsRowModel model

    spacing: 12

    StatCard {
        Layout.fillWidth: true
        Layout.preferredWidth: 1
        icon: "clock-filled"
        title: "Tracked"
        value: row.model.tracked
        detail: row.model.trackedDetail
    }

    StatCard {
        Layout.fillWidth: true
        Layout.preferredWidth: 1
        icon: "dollar"
        colors: Theme.mintGradient
        title: "Billable value"
        value: row.model.billable
        detail: row.model.billableDetail
    }

    StatCard {
        Layout.fillWidth: true
        Layout.preferredWidth: 1
        icon: "tray-full-filled"
        colors: Theme.amberGradient
        title: "Unbilled"
        value: row.model.unbilled
        detail: row.model.unbilledDetail
    }
}
