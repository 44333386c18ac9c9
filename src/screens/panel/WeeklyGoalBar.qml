// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Panel

/// How much of the week's goal is done.
ColumnLayout {
    id: bar

    required property WeeklyGoalBarModel model

    spacing: 6

    RowLayout {
        spacing: 8

        PlainText {
            Layout.fillWidth: true
            text: "This week"
            size: Theme.calloutSize
            color: Theme.secondaryText
        }

        PlainText {
            text: bar.model.text
            size: Theme.calloutSize
            font.family: Theme.tabularFamily
        }
    }

    ProgressTrack {
        Layout.fillWidth: true
        label: "This week " + bar.model.text
        fraction: bar.model.ratio
        smallest: 6
        colors: bar.model.isReached ? Theme.mintGradient : Theme.primaryGradient
    }
}
