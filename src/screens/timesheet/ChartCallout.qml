// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Timesheet

/// What is said of a part of a chart, beside it. Assistive technology reads the column instead.
Rectangle {
    id: callout

    required property DailyChartPlot plot
    readonly property rect anchor: plot.calloutAnchor
    readonly property real besideX: anchor.right + 8 + width <= plot.width ? anchor.right + 8 : anchor.left - 8 - width

    x: Math.round(Math.max(0, besideX))
    y: Math.round(Math.min(anchor.y + anchor.height / 2 - height / 2, plot.area.bottom - height))
    width: Math.min(280, lines.implicitWidth + 20)
    height: lines.implicitHeight + 16
    radius: 8
    color: Theme.cardFillHover
    border { width: 1; color: Theme.cardBorderStrong }
    opacity: plot.hasCallout ? 1 : 0
    visible: opacity > 0

    Behavior on opacity { NumberAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }

    ColumnLayout {
        id: lines

        anchors { fill: parent; leftMargin: 10; rightMargin: 10; topMargin: 8; bottomMargin: 8 }
        spacing: 4

        PlainText {
            Layout.fillWidth: true
            text: callout.plot.calloutTitle
            size: Theme.captionSize
            color: Theme.secondaryText
            Accessible.ignored: true
        }

        Repeater {
            model: callout.plot.calloutLines // qmllint disable

            RowLayout {
                id: line

                required property string label
                required property string hours
                required property color swatch
                required property color outline

                Layout.fillWidth: true
                spacing: 6

                Rectangle {
                    visible: line.swatch.a > 0
                    implicitWidth: 8
                    implicitHeight: 8
                    radius: 4
                    color: line.swatch
                    border { width: 1; color: line.outline }
                }

                PlainText {
                    Layout.fillWidth: true
                    text: line.label
                    size: Theme.calloutSize
                    elide: Text.ElideMiddle
                    Accessible.ignored: true
                }

                PlainText {
                    Layout.leftMargin: 8
                    visible: text.length > 0
                    text: line.hours
                    size: Theme.calloutSize
                    font.family: Theme.tabularFamily
                    font.weight: Font.Medium
                    Accessible.ignored: true
                }
            }
        }
    }
}
