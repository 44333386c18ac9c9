// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Main

/// The brand and the menu, the sections, and at the bottom the timer while it runs.
FocusScope {
    id: sidebar

    required property MainViewModel model

    signal closeRequested()

    ColumnLayout {
        anchors { fill: parent; margins: 12 }
        spacing: 4

        RowLayout {
            Layout.fillWidth: true
            Layout.leftMargin: 8
            Layout.topMargin: 4
            Layout.bottomMargin: 12
            spacing: 8

            AppMark { size: 24 }

            PlainText {
                Layout.fillWidth: true
                text: "Elmworth"
                size: 15
                font.weight: Font.DemiBold
            }

            MainMenuButton {
                model: sidebar.model
                onCloseRequested: sidebar.closeRequested()
            }
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 4
            Accessible.role: Accessible.PageTabList
            Accessible.name: "Sections"

            Repeater {
                model: sidebar.model.sections

                // The sidebar outlives its rows.
                // qmllint disable unqualified
                SidebarRow {
                    Layout.fillWidth: true
                    selected: sidebar.model.section === index
                    onClicked: sidebar.model.showSection(index)
                }
                // qmllint enable unqualified
            }
        }

        Item { Layout.fillHeight: true }

        MiniTimerCard {
            Layout.fillWidth: true
            visible: sidebar.model.running.isRunning
            entry: sidebar.model.running
            stopHelp: sidebar.model.stopHelp
            onStopRequested: sidebar.model.stopTimer()
        }
    }
}
