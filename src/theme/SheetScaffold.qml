// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// A form of its own: a head, the content, and a row of buttons at its end.
Rectangle {
    id: sheet

    property string icon: ""
    property var colors: Theme.primaryGradient
    property string title: ""
    property string subtitle: ""
    property real sheetWidth: 480
    default property alias content: body.data
    property alias actions: row.data

    implicitWidth: sheetWidth
    implicitHeight: column.implicitHeight
    radius: Theme.sheetRadius
    color: Theme.panelFill
    border { width: 1; color: Theme.cardBorderStrong }

    ColumnLayout {
        id: column

        anchors.fill: parent
        spacing: 0

        RowLayout {
            Layout.fillWidth: true
            Layout.leftMargin: 22
            Layout.rightMargin: 22
            Layout.topMargin: 20
            Layout.bottomMargin: 20
            spacing: 12

            IconTile {
                visible: sheet.icon.length > 0
                icon: sheet.icon
                colors: sheet.colors
                size: 34
            }

            ColumnLayout {
                Layout.fillWidth: true
                spacing: 2

                PlainText {
                    Layout.fillWidth: true
                    text: sheet.title
                    // "Delete …?" must tell names apart that differ at their end.
                    wrapMode: Text.Wrap
                    maximumLineCount: 3
                    size: 19
                    font.weight: Font.Medium
                    Accessible.role: Accessible.Heading
                }

                PlainText {
                    Layout.fillWidth: true
                    visible: text.length > 0
                    text: sheet.subtitle
                    size: Theme.calloutSize
                    color: Theme.secondaryText
                }
            }
        }

        Hairline { Layout.fillWidth: true }

        ColumnLayout {
            id: body

            // While it is hidden, what comes into it later would have no height, and it stayed hidden.
            readonly property bool isEmpty: implicitHeight <= 0

            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.leftMargin: 22
            Layout.rightMargin: 22
            Layout.topMargin: isEmpty ? 0 : 20
            Layout.bottomMargin: isEmpty ? 0 : 20
            spacing: 12
        }

        Hairline {
            Layout.fillWidth: true
            visible: !body.isEmpty
        }

        RowLayout {
            id: row

            Layout.alignment: Qt.AlignRight
            Layout.leftMargin: 22
            Layout.rightMargin: 22
            Layout.topMargin: 14
            Layout.bottomMargin: 14
            spacing: 10
        }
    }
}
