// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Gallery

/// Dates, times, and choices of very many.
GallerySection {
    id: section

    required property GalleryModel model

    title: "Dates and times"

    RowLayout {
        spacing: 24

        ColumnLayout {
            Layout.alignment: Qt.AlignTop
            Layout.fillWidth: false
            spacing: 16

            // qmllint disable
            DateTimeFields { label: "Start"; date: section.model.date }
            DateTimeFields { label: "End"; date: section.model.wrongDate }
            DateTimeFields { label: "Disabled"; date: section.model.date; enabled: false }
            // qmllint enable

            SearchPicker {
                label: "Icon"
                prompt: "Search icons"
                choice: section.model.icons
            }

            RowLayout {
                spacing: 6

                ChoiceChip { text: "30m" }
                ChoiceChip { text: "1h"; chosen: true }
                ChoiceChip { text: "1h30"; looksHovered: true }
                ChoiceChip { text: "2h"; looksFocused: true }
                ChoiceChip { text: "4h"; enabled: false }
            }
        }

        GlassCard {
            MonthCalendar {
                label: "Day"
                model: section.model.date.month // qmllint disable
            }
        }

        ScrollingArea {
            Layout.alignment: Qt.AlignTop
            Layout.preferredWidth: 280
            label: "Notes"
            text: "One line after another\n".repeat(12)
        }

        Item { Layout.fillWidth: true }
    }
}
