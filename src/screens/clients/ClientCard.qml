// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A client in the grid, with its open money.
HoverCard {
    id: card

    required property int index
    required property string name
    required property string contact
    required property bool hasEmail
    required property string rate
    required property string projectCount
    required property string unbilled
    required property string value
    required property string lastInvoice
    required property var projectNames
    required property var projectColors
    required property string more
    required property string invoiceText
    required property string summary

    signal clicked(int row)
    signal doubleClicked(int row)
    signal menuRequested(int row, real x, real y)
    signal invoiceRequested(int row)

    Accessible.role: Accessible.ListItem
    Accessible.name: summary
    Accessible.selectable: true
    Accessible.selected: selected
    Accessible.focused: selected
    Accessible.onPressAction: clicked(index)

    MouseArea {
        anchors { fill: parent; margins: -card.padding }
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onPressed: mouse => {
            if (mouse.button === Qt.RightButton)
                card.menuRequested(card.index, mouse.x, mouse.y);
            else
                card.clicked(card.index);
        }
        onDoubleClicked: mouse => {
            if (mouse.button === Qt.LeftButton)
                card.doubleClicked(card.index);
        }

        Rectangle {
            anchors.fill: parent
            visible: card.selected
            radius: card.corner
            color: Qt.alpha(Theme.accentViolet, Theme.dark ? 0.1 : 0.06)
            border { width: 1; color: Theme.accentViolet }
        }

        InitialTile {
            id: tile

            x: card.padding
            y: card.padding
            size: 40
            text: card.name
            colors: Theme.tileGradient(card.name)
        }

        PlainText {
            id: title

            anchors { left: tile.right; leftMargin: 12; right: rate.left; rightMargin: 10; bottom: tile.verticalCenter }
            text: card.name
            size: 14
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }

        PlainText {
            anchors { left: title.left; right: parent.right; rightMargin: card.padding; top: tile.verticalCenter; topMargin: 3 }
            text: card.contact
            size: Theme.calloutSize
            color: card.hasEmail ? Theme.secondaryText : Theme.tertiaryText
            Accessible.ignored: true
        }

        PlainText {
            id: rate

            anchors { right: parent.right; rightMargin: card.padding; baseline: title.baseline }
            width: Math.min(Math.ceil(implicitWidth), (parent.width - title.x) * 0.6)
            text: card.rate
            size: Theme.calloutSize
            font.family: Theme.tabularFamily
            color: Theme.secondaryText
            Accessible.ignored: true
        }

        Item {
            id: figures

            anchors { left: tile.left; right: parent.right; rightMargin: card.padding; top: tile.bottom; topMargin: 14 }
            height: 36

            ClientFigure {
                id: projects

                width: Math.round(Math.min(64, parent.width * 0.24))
                title: "Projects"
                value: card.projectCount
            }

            Hairline {
                x: projects.width + 6
                anchors.verticalCenter: parent.verticalCenter
                height: 28
                color: Theme.cardBorderStrong
            }

            ClientFigure {
                id: unbilled

                x: projects.width + 18
                width: Math.round((parent.width - x) * 0.42)
                title: "Unbilled"
                value: card.unbilled
            }

            Hairline {
                x: unbilled.x + unbilled.width + 6
                anchors.verticalCenter: parent.verticalCenter
                height: 28
                color: Theme.cardBorderStrong
            }

            ClientFigure {
                x: unbilled.x + unbilled.width + 18
                width: parent.width - x
                title: "Value"
                value: card.value
            }
        }

        Column {
            anchors { left: tile.left; right: figures.right; top: figures.bottom; topMargin: 12 }
            spacing: 8

            Item {
                width: parent.width
                height: 16
                visible: card.lastInvoice.length > 0

                PlainText {
                    id: label

                    anchors.verticalCenter: parent.verticalCenter
                    text: "Last invoice"
                    size: Theme.captionSize
                    color: Theme.tertiaryText
                    Accessible.ignored: true
                }

                PlainText {
                    anchors { left: label.right; leftMargin: 6; right: parent.right; baseline: label.baseline }
                    text: card.lastInvoice
                    size: Theme.captionSize
                    font.family: Theme.tabularFamily
                    color: Theme.secondaryText
                    Accessible.ignored: true
                }
            }

            ClientChips {
                width: parent.width
                visible: card.projectNames.length > 0
                names: card.projectNames
                tints: card.projectColors
                more: card.more
            }
        }

        OnDemand {
            anchors {
                left: tile.left; right: figures.right
                bottom: parent.bottom; bottomMargin: card.padding
            }
            wanted: card.invoiceText.length > 0
            visible: wanted

            // The button doesn't outlive its card.
            // qmllint disable unqualified
            sourceComponent: ClientInvoiceButton {
                text: card.invoiceText
                onClicked: card.invoiceRequested(card.index)
            }
            // qmllint enable unqualified
        }
    }
}
