// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Welcome

/// What a new user does first, and how far that is.
GlassCard {
    id: card

    required property GettingStartedModel model

    /// The keyboard stood on what went away.
    signal departed()

    padding: 14
    Accessible.role: Accessible.Grouping
    Accessible.name: "Get set up"

    ColumnLayout {
        anchors.fill: parent
        spacing: 10

        RowLayout {
            Layout.fillWidth: true
            spacing: 10

            CardHeader {
                Layout.fillWidth: true
                icon: "flag"
                colors: Theme.mintGradient
                title: "Get set up"
                subtitle: card.model.detail
            }

            IconButton {
                iconName: "cross"
                label: "Hide checklist"
                help: "Hide"
                onClicked: {
                    const hadFocus = activeFocus;
                    card.model.hide();
                    if (hadFocus)
                        card.departed();
                }
            }
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 6

            Repeater {
                model: card.model.titles

                // The steps don't outlive their card.
                // qmllint disable unqualified
                GettingStartedStep {
                    required property int index
                    required property string modelData

                    Layout.fillWidth: true
                    title: modelData
                    isDone: card.model.done[index]
                    onClicked: card.model.act(index)
                }
                // qmllint enable unqualified
            }
        }
    }
}
