// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Panel

/// The entry that runs: its project, its notes to type into, its time, and the button that stops it.
GlassCard {
    id: banner

    required property RunningEntryModel model

    Accessible.role: Accessible.Grouping
    Accessible.name: "Now tracking"

    RowLayout {
        anchors.fill: parent
        spacing: 16

        IconBadge {
            icon: "record"
            tint: Tint.fromHex(banner.model.badgeColor)
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
                text: banner.model.projectTitle
                size: 15
                font.weight: Font.DemiBold
            }

            InputField {
                Layout.fillWidth: true
                Layout.leftMargin: -leftPadding
                Layout.bottomMargin: -3
                implicitHeight: 26
                topPadding: 4
                bottomPadding: 4
                plain: true
                label: "What are you working on?"
                placeholderText: "What are you working on?"
                text: banner.model.notes
                maximumLength: 0x7fffffff
                onTextChanged: {
                    if (text === banner.model.notes)
                        return;
                    banner.model.notes = text;
                    // Assistive technology types without the focus, which ends no editing.
                    if (!activeFocus)
                        banner.model.saveNotes();
                }
                onAccepted: banner.model.saveNotes()
                onActiveFocusChanged: if (!activeFocus) banner.model.leaveNotes()
            }
        }

        PlainText {
            text: banner.model.elapsed
            size: 30
            font.family: Theme.tabularFamily
            font.weight: Font.Medium
            Accessible.name: "Elapsed " + text
        }

        GlowButton {
            text: "Stop"
            iconName: "stop"
            prominent: true
            onClicked: banner.model.stop()
        }
    }
}
