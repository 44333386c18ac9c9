// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Main

/// The plain main window: the running timer, and the recent projects to start.
Basic.ApplicationWindow {
    id: window

    required property TimerWindowModel model

    title: "Elmworth"
    width: 440
    height: 640
    minimumWidth: 340
    minimumHeight: 420
    visible: true
    color: Theme.backgroundTop

    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: Qt.quit()
    }

    Shortcut {
        sequence: "Ctrl+Alt+."
        enabled: window.model.isRunning
        onActivated: window.model.stop()
    }

    Basic.ScrollView {
        id: scroll

        readonly property int margin: 20
        readonly property Flickable view: contentItem as Flickable

        /// Brings what the keyboard has reached into the visible part.
        function reveal(item: Item) {
            const top = content.mapFromItem(item, 0, 0).y;
            const lowest = top + item.height + 2 * margin - height;
            view.contentY = Math.max(lowest, Math.min(view.contentY, top));
        }

        anchors.fill: parent
        contentWidth: availableWidth
        contentHeight: content.implicitHeight + 2 * margin

        ColumnLayout {
            id: content

            x: scroll.margin
            y: scroll.margin
            width: scroll.availableWidth - 2 * scroll.margin
            spacing: 16

            RowLayout {
                Layout.fillWidth: true

                PlainText {
                    Layout.fillWidth: true
                    text: "Elmworth"
                    size: 22
                    font.weight: Font.Medium
                }

                PlainText {
                    text: "Today " + window.model.today
                    color: Theme.secondaryText
                    font.family: Theme.tabularFamily
                }
            }

            RunningCard {
                id: card

                Layout.fillWidth: true
                visible: window.model.isRunning
                model: window.model
                onHasKeyboardFocusChanged: if (hasKeyboardFocus) scroll.reveal(card)
            }

            PlainText {
                visible: projectList.count > 0
                text: window.model.sectionTitle
                color: Theme.secondaryText
                size: 12
                font.weight: Font.DemiBold
            }

            ColumnLayout {
                Layout.fillWidth: true
                spacing: 6

                Repeater {
                    id: projectList

                    model: window.model.projects

                    ProjectRow {
                        id: row

                        Layout.fillWidth: true
                        // The window outlives its rows.
                        // qmllint disable unqualified
                        onClicked: window.model.start(row.index)
                        onVisualFocusChanged: if (row.visualFocus) scroll.reveal(row)
                        // qmllint enable unqualified
                    }
                }
            }

            EmptyProjects {
                Layout.fillWidth: true
                visible: !window.model.hasProjects && !window.model.isRunning
            }
        }
    }
}
