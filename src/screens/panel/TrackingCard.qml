// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Panel

/// The entry that runs: its time, its notes, what is asked about it, and the button that stops it.
GlassCard {
    id: card

    required property RunningCardModel model

    padding: 14

    ColumnLayout {
        anchors.fill: parent
        spacing: 8

        RowLayout {
            spacing: 8

            PulsingDot {
                tint: Tint.fromHex(card.model.projectColor)
                beat: card.model.elapsed
            }

            PlainText {
                Layout.fillWidth: true
                text: "Tracking"
                size: Theme.calloutSize
                color: Theme.secondaryText
                font.weight: Font.Medium
            }

            PlainText {
                text: card.model.elapsed
                size: 20
                font.family: Theme.tabularFamily
                font.weight: Font.Medium
                Accessible.name: "Elapsed " + text
            }
        }

        RowLayout {
            spacing: 8

            ColumnLayout {
                Layout.fillWidth: true
                spacing: 2

                PlainText {
                    Layout.fillWidth: true
                    text: card.model.projectTitle
                    size: 15
                    font.weight: Font.DemiBold
                }

                PlainText {
                    Layout.fillWidth: true
                    visible: text.length > 0
                    text: card.model.clientName
                    size: Theme.calloutSize
                    color: Theme.secondaryText
                }
            }

            Chip {
                visible: card.model.budget.isShown
                text: card.model.budget.text
                icon: "gauge"
                tint: Theme.amberGradient[0]
            }
        }

        LongRunningWarning {
            Layout.fillWidth: true
            visible: model.isShown
            model: card.model.warning
        }

        AwayPrompt {
            Layout.fillWidth: true
            visible: model.isShown
            model: card.model.away
        }

        InputField {
            Layout.fillWidth: true
            placeholderText: "What are you working on?"
            text: card.model.notes
            maximumLength: 0x7fffffff
            onTextChanged: {
                if (text === card.model.notes)
                    return;
                card.model.notes = text;
                // Assistive technology types without the focus, which ends no editing.
                if (!activeFocus)
                    card.model.saveNotes();
            }
            onAccepted: card.model.saveNotes()
            onActiveFocusChanged: if (!activeFocus) card.model.leaveNotes()
        }

        GlowButton {
            Layout.fillWidth: true
            text: "Stop"
            iconName: "stop"
            prominent: true
            help: "Ctrl+Alt+."
            onClicked: card.model.stop()
        }
    }
}
