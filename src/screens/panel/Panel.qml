// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Panel

/// What starts, switches, annotates and stops the timer, each with one click.
FocusScope {
    id: panel

    required property PanelModel model

    /// The panel has led on to another window.
    signal done()

    /// Gives the focus to what is used first.
    function focusFirst(): void {
        if (section.hasSearch)
            section.focusSearch();
        else
            header.forceActiveFocus();
    }

    /// Shows all projects again. False when nothing was searched for.
    function endSearch(): bool {
        const isSearching = model.projects.search.length > 0;
        model.projects.search = "";
        return isSearching;
    }

    implicitHeight: header.implicitHeight + content.implicitHeight + footer.implicitHeight + 2 * 12 + 2 * 8
    focus: true

    Shortcut {
        sequence: "Ctrl+Alt+."
        enabled: panel.model.running.isRunning
        onActivated: panel.model.running.stop()
    }

    Shortcut {
        sequence: "Ctrl+Shift+R"
        enabled: panel.model.continueRow.isShown
        onActivated: panel.model.continueRow.continueEntry()
    }

    Shortcut {
        sequence: "Ctrl+Q"
        onActivated: panel.model.quit()
    }

    RowLayout {
        id: header

        anchors { left: parent.left; right: parent.right; top: parent.top; margins: 12 }
        spacing: 8

        AppMark { size: 20 }

        PlainText {
            Layout.fillWidth: true
            text: "Elmworth"
            size: 14
            font.weight: Font.DemiBold
        }

        TodayChip { model: panel.model.today }
    }

    Basic.ScrollView {
        id: scroll

        /// Brings what the keyboard has reached into the visible part.
        readonly property Item reached: panel.Window.activeFocusItem

        onReachedChanged: {
            const place = reached ? content.mapFromItem(reached, 0, 0).y : -1;
            if (place < 0 || place >= content.height)
                return;
            const view = contentItem as Flickable;
            view.contentY = Math.min(place, Math.max(view.contentY, place + reached.height + 2 * rim - height));
        }

        /// The room for the ring round what has the focus.
        readonly property int rim: 4

        anchors {
            left: parent.left; right: parent.right
            top: header.bottom; topMargin: 12 - rim
            bottom: footer.top
        }
        contentWidth: availableWidth
        contentHeight: content.implicitHeight + 2 * rim
        Basic.ScrollBar.horizontal.policy: Basic.ScrollBar.AlwaysOff
        Basic.ScrollBar.vertical: SlimScrollBar {
            anchors { top: parent.top; right: parent.right; bottom: parent.bottom }
        }

        ColumnLayout {
            id: content

            x: 12
            y: scroll.rim
            width: scroll.availableWidth - 24
            spacing: 12

            WeeklyGoalBar {
                Layout.fillWidth: true
                visible: model.isShown
                model: panel.model.weeklyGoal
            }

            TrackingCard {
                Layout.fillWidth: true
                visible: model.isRunning
                model: panel.model.running
            }

            ContinueRow {
                Layout.fillWidth: true
                visible: model.isShown
                model: panel.model.continueRow
            }

            EmptyHero {
                Layout.fillWidth: true
                visible: panel.model.projects.isEmpty
                icon: "folder-filled"
                title: "No projects yet"
                message: "Add a client and a project, then start tracking with one click."

                GlowButton {
                    text: "Create a Project"
                    prominent: true
                    onClicked: { panel.model.createProject(); panel.done(); }
                }
            }

            ProjectSection {
                id: section

                Layout.fillWidth: true
                visible: !panel.model.projects.isEmpty
                model: panel.model.projects
            }
        }
    }

    PanelFooter {
        id: footer

        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; margins: 1 }
        model: panel.model
        onDone: panel.done()
    }
}
