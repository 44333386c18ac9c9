// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Timesheet

/// Hours per day, stacked by project. The arrow keys move over the days.
GlassCard {
    id: card

    required property DailyChartModel model

    padding: 14

    ColumnLayout {
        anchors { fill: parent; leftMargin: 2; rightMargin: 2 }
        spacing: 10

        CardHeader {
            Layout.fillWidth: true
            icon: "bar-chart"
            colors: Theme.violetGradient
            title: "Hours by day"
        }

        FocusScope {
            id: chart

            /// The day that the keyboard stands on, or comes back to.
            property int current: 0

            function moveTo(day: int): void {
                const column = days.itemAt(Math.max(0, Math.min(day, days.count - 1)));
                if (column)
                    column.forceActiveFocus(Qt.TabFocusReason);
            }

            Layout.fillWidth: true
            implicitHeight: 150
            Accessible.role: Accessible.Chart
            Accessible.name: "Hours by day"
            Accessible.description: card.model.description

            Keys.onLeftPressed: moveTo(current - 1)
            Keys.onRightPressed: moveTo(current + 1)
            Keys.onPressed: event => {
                event.accepted = event.key === Qt.Key_Home || event.key === Qt.Key_End;
                if (event.accepted)
                    moveTo(event.key === Qt.Key_Home ? 0 : days.count - 1);
            }

            DailyChartPlot {
                id: plot

                width: parent.width
                height: chart.implicitHeight - 8 - legend.implicitHeight
                model: card.model
                ink: Theme.secondaryText
                line: Theme.hairline
                ground: Theme.cardFill
                font { family: Theme.tabularFamily; pixelSize: Theme.captionSize }
                pointer: hover.hovered ? hover.point.position : Qt.point(-1, -1)
                column: chart.activeFocus ? chart.current : -1

                HoverHandler { id: hover }

                Repeater {
                    id: days

                    model: card.model.columns // qmllint disable
                    onCountChanged: chart.current = Math.max(0, Math.min(chart.current, count - 1))

                    // The columns don't outlive their chart.
                    // qmllint disable unqualified
                    Item {
                        id: column

                        required property int index
                        required property string name

                        x: plot.area.x + index * plot.columnWidth
                        y: plot.area.y
                        width: plot.columnWidth
                        height: plot.area.height
                        activeFocusOnTab: activeFocus || index === chart.current
                        Accessible.role: Accessible.ListItem
                        Accessible.name: name
                        Accessible.focusable: true
                        onActiveFocusChanged: if (activeFocus) chart.current = index
                    }
                    // qmllint enable unqualified
                }

                FocusRing {
                    anchors.fill: undefined
                    x: plot.area.x + chart.current * plot.columnWidth
                    y: plot.area.y - 3
                    width: plot.columnWidth
                    height: plot.area.height + 6
                    corner: 3
                    shows: chart.activeFocus
                }
            }

            DailyChartLegend {
                id: legend

                y: plot.height + 8
                width: parent.width
                height: implicitHeight
                model: card.model
                ink: Theme.secondaryText
                ground: Theme.cardFill
                font { family: Theme.textFamily; pixelSize: Theme.captionSize }
                Accessible.role: Accessible.StaticText
                Accessible.name: card.model.legendText
            }

            ChartCallout {
                plot: plot
                z: 1
            }
        }
    }
}
