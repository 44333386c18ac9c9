// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Gallery

/// Cards, rows, chips, and what stands on empty screens.
GallerySection {
    title: "Cards and rows"

    RowLayout {
        Layout.fillWidth: true
        spacing: 12

        StatCard { Layout.fillWidth: true; Layout.preferredWidth: 1; icon: "clock-filled"; title: "Tracked"; value: "32:45"; detail: "9 entries" }
        StatCard { Layout.fillWidth: true; Layout.preferredWidth: 1; icon: "dollar"; colors: Theme.mintGradient; title: "Billable value"; value: "$4,912.50"; detail: "32.75 h" }
        StatCard { Layout.fillWidth: true; Layout.preferredWidth: 1; icon: "tray-full-filled"; colors: Theme.amberGradient; title: "Unbilled"; value: "$123,456,789,012.50"; detail: "A figure too long for its card is made smaller" }
        StatCard { Layout.fillWidth: true; Layout.preferredWidth: 1; icon: "calendar"; colors: Theme.coralGradient; title: "Due"; value: "Mar 14"; detail: "3 days late"; valueColor: Theme.warningText }
    }

    RowLayout {
        spacing: 8

        Chip { text: "Billed"; tint: Theme.accentViolet }
        Chip { text: "Live"; tint: "#FF5B87"; icon: "record" }
        Chip { text: "Over budget"; tint: Theme.coralGradient[1]; icon: "gauge" }
        Chip { text: "84% of budget"; tint: Theme.amberGradient[0]; icon: "gauge" }
        Chip { text: "Paid"; tint: Theme.mintGradient[0] }
        Chip { text: "Dark tint"; tint: "#101030" }
        Chip { text: "Pale tint"; tint: "#FFF3B0" }
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: 12

        ColumnLayout {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            spacing: 6

            ListRow { Layout.fillWidth: true; title: "Website Redesign"; subtitle: "Acme Co"; mark: "#7C6CFF" }
            ListRow { Layout.fillWidth: true; title: "Hovered, with a name that is far too long for its row"; subtitle: "Globex"; mark: "#2EC4B6"; looksHovered: true
                PlainText { text: "Ctrl+2"; color: Theme.secondaryText }
                Icon { name: "play" }
            }
            ListRow { Layout.fillWidth: true; title: "Focused"; subtitle: "Initech"; mark: "#FFB400"; looksFocused: true }
            ListRow { Layout.fillWidth: true; title: "Pressed"; mark: "#4AA8FF"; looksPressed: true }
            ListRow { Layout.fillWidth: true; title: "Disabled"; mark: "#FF6B8B"; enabled: false }
        }

        GlassCard {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 1
            shadow: true

            CardHeader {
                anchors { left: parent.left; right: parent.right; top: parent.top }
                icon: "bar-chart"
                colors: Theme.violetGradient
                title: "Hours by day"
                subtitle: "A card with a shadow"
            }
        }

        HoverCard {
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.preferredWidth: 1
            selected: true

            CardHeader {
                anchors { left: parent.left; right: parent.right; top: parent.top }
                icon: "flag"
                colors: Theme.mintGradient
                title: "Get set up"
                subtitle: "3 of 5 done, selected"
            }
        }
    }

    Notice { Layout.preferredWidth: implicitWidth; text: "Deleted 3 entries."; actionText: "Undo" }
    Notice {
        Layout.preferredWidth: implicitWidth
        text: "2 entries are on an invoice and stay as they are. The timer was not started again, because time was tracked since."
    }

    RowLayout {
        Layout.fillWidth: true
        spacing: 12

        GallerySheet { Layout.alignment: Qt.AlignTop }

        GlassCard {
            Layout.fillWidth: true
            Layout.fillHeight: true

            EmptyHero {
                anchors.centerIn: parent
                icon: "people-filled"
                title: "Add your first client"
                message: "Clients hold your rate, currency and billing address. Projects and invoices hang off them."

                GlowButton { text: "Add your first client"; prominent: true }
                GlowButton { text: "Import CSV…" }
            }
        }
    }
}
