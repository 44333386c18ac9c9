// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Panel

/// The running entry, small, in the sidebar.
GlassCard {
    id: card

    required property RunningEntryModel entry
    property string stopHelp: ""

    signal stopRequested()

    padding: 12
    Accessible.role: Accessible.Grouping
    Accessible.name: "Running timer"

    ColumnLayout {
        anchors.fill: parent
        spacing: 2

        RowLayout {
            Layout.fillWidth: true
            Layout.bottomMargin: 4
            spacing: 6

            PulsingDot {
                tint: Tint.fromHex(card.entry.projectColor)
                beat: card.entry.elapsed
            }

            PlainText {
                Layout.fillWidth: true
                text: "Tracking"
                size: Theme.captionSize
                color: Theme.secondaryText
                font.weight: Font.Medium
            }
        }

        PlainText {
            Layout.fillWidth: true
            visible: text.length > 0
            text: card.entry.projectName
            font.weight: Font.DemiBold
        }

        PlainText {
            Layout.fillWidth: true
            visible: text.length > 0
            text: card.entry.clientName
            size: Theme.calloutSize
            color: Theme.secondaryText
        }

        RowLayout {
            Layout.fillWidth: true
            Layout.topMargin: 4
            spacing: 8

            PlainText {
                Layout.fillWidth: true
                // No sidebar leaves less. While one is laid out there would be less, and each smaller size be tried.
                Layout.minimumWidth: 100
                text: card.entry.elapsed
                size: 20
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 12
                font.family: Theme.tabularFamily
                font.weight: Font.Medium
                Accessible.name: "Elapsed " + text
            }

            CircleIconButton {
                size: 32
                iconName: "stop"
                colors: Theme.coralGradient
                label: "Stop timer"
                help: card.stopHelp
                onClicked: card.stopRequested()
            }
        }
    }
}
