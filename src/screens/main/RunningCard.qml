// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Main

/// The entry that runs, with its time and the button that stops it.
GlassCard {
    id: card

    required property RunningEntryModel entry

    signal stopRequested()

    RowLayout {
        anchors.fill: parent
        spacing: 16

        IconBadge {
            icon: "record.circle"
            tint: Tint.fromHex(card.entry.projectColor)
            size: 38
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2

            PlainText {
                Layout.fillWidth: true
                text: "Now tracking"
                size: Theme.captionSize
                color: Theme.secondaryText
                font.weight: Font.Medium
            }

            PlainText {
                Layout.fillWidth: true
                text: card.entry.projectTitle
                size: 15
                font.weight: Font.DemiBold
            }

            PlainText {
                Layout.fillWidth: true
                visible: text.length > 0
                text: card.entry.clientName
                color: Theme.secondaryText
            }

            PlainText {
                Layout.fillWidth: true
                Layout.topMargin: 4
                visible: text.length > 0
                text: card.entry.notes
                wrapMode: Text.Wrap
                maximumLineCount: 2
                color: Theme.secondaryText
            }
        }

        PlainText {
            text: card.entry.elapsed
            size: 30
            font.family: Theme.tabularFamily
            font.weight: Font.Medium
            Accessible.name: "Elapsed " + text
        }

        GlowButton {
            text: "Stop"
            systemImage: "stop"
            prominent: true
            onClicked: card.stopRequested()
        }
    }
}
