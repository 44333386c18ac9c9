// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Timesheet
import Elmworth.Welcome

/// What stands above the days: what runs, the figures, the chart, and the filter bar.
Item {
    id: head

    required property TimesheetModel model
    property real margin: 24

    signal exportRequested()
    signal searchLeft()

    function find(): void {
        filters.find();
    }

    implicitHeight: column.implicitHeight + margin + 4

    ColumnLayout {
        id: column

        x: head.margin
        y: head.margin
        width: head.width - 2 * head.margin
        spacing: 16

        PageHeader {
            Layout.fillWidth: true
            title: "Timesheet"
            subtitle: head.model.filter.subtitle + (head.model.isReading ? " · Reading…" : "")

            GlowButton {
                text: "Export CSV"
                iconName: "table"
                help: "Export the filtered entries as CSV"
                enabled: !head.model.isEmpty
                onClicked: head.exportRequested()
            }

            GlowButton {
                text: "New Entry"
                iconName: "plus"
                help: "Ctrl+N"
                prominent: true
                onClicked: head.model.addEntry()
            }
        }

        // What lies below moves as the banner comes and goes.
        Item {
            id: place

            property real shown: head.model.running.isRunning ? 1 : 0

            Layout.fillWidth: true
            Layout.bottomMargin: (shown - 1) * column.spacing
            implicitHeight: banner.implicitHeight * shown
            visible: shown > 0

            Behavior on shown {
                enabled: !AppAppearance.reducedMotion

                NumberAnimation { duration: 350; easing.type: Easing.OutCubic }
            }

            NowTrackingBanner {
                id: banner

                width: place.width
                height: implicitHeight
                opacity: enabled ? place.shown : 0
                scale: 0.97 + 0.03 * place.shown
                transformOrigin: Item.Top
                enabled: head.model.running.isRunning
                model: head.model.running
            }
        }

        OnDemand {
            Layout.fillWidth: true
            wanted: head.model.gettingStarted.isShown
            visible: wanted

            // What is made on demand doesn't outlive its head.
            // qmllint disable unqualified
            sourceComponent: GettingStartedCard {
                model: head.model.gettingStarted
                onDeparted: head.searchLeft()
            }
            // qmllint enable unqualified
        }

        StatsRow {
            Layout.fillWidth: true
            model: head.model.stats
        }

        OnDemand {
            Layout.fillWidth: true
            wanted: head.model.showsChart
            visible: wanted

            // What is made on demand doesn't outlive its head.
            // qmllint disable unqualified
            sourceComponent: DailyChart {
                model: head.model.chart
            }
            // qmllint enable unqualified
        }

        FilterBar {
            id: filters

            Layout.fillWidth: true
            model: head.model.filter
            onSearchLeft: head.searchLeft()
        }

        PlainText {
            Layout.fillWidth: true
            Layout.topMargin: 24
            visible: head.model.isReading && head.model.showsNothing
            horizontalAlignment: Text.AlignHCenter
            text: "Reading older entries…"
            color: Theme.secondaryText
        }

        OnDemand {
            Layout.fillWidth: true
            wanted: head.model.isEmpty
            visible: wanted

            // qmllint disable unqualified
            sourceComponent: EmptyHero {
                icon: "clock-filled"
                title: head.model.emptyTitle
                message: head.model.emptyMessage

                GlowButton {
                    text: "Add Entry"
                    prominent: true
                    onClicked: head.model.addEntry()
                }
            }
            // qmllint enable unqualified
        }
    }
}
