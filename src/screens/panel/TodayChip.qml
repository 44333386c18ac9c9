// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Panel

/// The time of today, beside the panel's title.
RowLayout {
    id: chip

    required property TodayChipModel model

    spacing: 6

    PlainText {
        text: "Today"
        size: Theme.calloutSize
        color: Theme.secondaryText
    }

    PlainText {
        text: chip.model.text
        font.family: Theme.tabularFamily
        font.weight: Font.Medium
        Accessible.name: "Today " + text
    }
}
