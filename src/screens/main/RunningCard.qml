// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Main

/// The entry that runs, with its time and the button that stops it.
Rectangle {
    id: card

    required property TimerWindowModel model
    readonly property bool hasKeyboardFocus: stop.visualFocus

    implicitHeight: column.implicitHeight + 32
    radius: Theme.cardRadius
    color: Theme.cardFill
    border.width: 1
    border.color: Theme.cardBorder

    ColumnLayout {
        id: column

        anchors { fill: parent; margins: 16 }
        spacing: 4

        RowLayout {
            Layout.fillWidth: true
            spacing: 8

            Rectangle {
                Layout.preferredWidth: 8
                Layout.preferredHeight: 8
                radius: 4
                color: card.model.projectColor
            }

            PlainText {
                Layout.fillWidth: true
                text: "Tracking"
                color: Theme.secondaryText
                size: 12
                font.weight: Font.Medium
            }
        }

        PlainText {
            Layout.fillWidth: true
            text: card.model.elapsed
            fontSizeMode: Text.HorizontalFit
            minimumPointSize: Theme.points(20)
            font.family: Theme.tabularFamily
            size: 44
            font.weight: Font.Medium
            Accessible.name: "Elapsed " + text
        }

        PlainText {
            Layout.fillWidth: true
            text: card.model.projectName
            size: 15
            font.weight: Font.DemiBold
        }

        PlainText {
            Layout.fillWidth: true
            visible: text.length > 0
            text: card.model.clientName
            color: Theme.secondaryText
        }

        PlainText {
            Layout.fillWidth: true
            Layout.topMargin: 4
            visible: text.length > 0
            text: card.model.notes
            wrapMode: Text.Wrap
            maximumLineCount: 2
            color: Theme.secondaryText
        }

        GlowButton {
            id: stop

            Layout.topMargin: 12
            text: "Stop"
            systemImage: "stop.fill"
            prominent: true
            onClicked: card.model.stop()
        }
    }
}
