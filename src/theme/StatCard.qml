// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// A figure with what it means.
GlassCard {
    id: card

    property string icon: ""
    property var colors: Theme.primaryGradient
    property string title: ""
    property string value: ""
    property string detail: ""
    /// Where there is little room, the detail may take so many lines.
    property int detailLines: 1
    /// Another colour for a figure that wants attention.
    property color valueColor: Theme.primaryText

    padding: 16
    Accessible.role: Accessible.Grouping
    Accessible.name: title

    ColumnLayout {
        anchors { left: parent.left; right: parent.right; top: parent.top }
        spacing: 6

        RowLayout {
            Layout.fillWidth: true
            spacing: 6

            Icon {
                name: card.icon
                size: 14
                color: Tint.legible(card.colors[0], Theme.cardFill, Theme.backgroundTop)
            }

            PlainText {
                Layout.fillWidth: true
                text: card.title
                size: 11
                color: Theme.secondaryText
                font.weight: Font.Medium
            }
        }

        PlainText {
            Layout.fillWidth: true
            text: card.value
            size: 24
            color: card.valueColor
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 14
            font.family: Theme.tabularFamily
            font.weight: Font.Medium
        }

        PlainText {
            Layout.fillWidth: true
            visible: text.length > 0
            // "6-min" stays in one line.
            text: card.detail.replace(/-/g, "\u2011")
            Accessible.name: card.detail
            wrapMode: card.detailLines > 1 ? Text.Wrap : Text.NoWrap
            maximumLineCount: card.detailLines
            size: Theme.captionSize
            font.family: Theme.tabularFamily
            color: Qt.alpha(Theme.primaryText, 0.6)
        }
    }
}
