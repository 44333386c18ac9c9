// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A word about something, on a capsule of its colour.
Rectangle {
    id: chip

    property string text: ""
    property color tint: Theme.accentViolet
    property string icon: ""

    readonly property color foreground: Tint.legible(tint, color, Theme.cardFillHover)

    implicitWidth: row.implicitWidth + 14
    implicitHeight: row.implicitHeight + 5
    radius: height / 2
    color: Qt.alpha(tint, 0.13)
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    Row {
        id: row

        x: 7
        y: 2.5
        spacing: 3

        Icon {
            visible: chip.icon.length > 0
            anchors.verticalCenter: parent.verticalCenter
            name: chip.icon
            size: 8.5
            color: chip.foreground
        }

        PlainText {
            text: chip.text
            size: 10.5
            color: chip.foreground
            font.family: Theme.tabularFamily
            font.weight: Font.Medium
            Accessible.ignored: true
        }
    }
}
