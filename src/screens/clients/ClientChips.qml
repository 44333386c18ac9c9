// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// The first projects of a client, in two lines at most, and how many more there are.
Flow {
    id: chips

    property var names: []
    property var tints: []
    property string more: ""

    /// Two of them fit on a line, with the number behind them.
    readonly property real widest: Math.floor((width - spacing - (more.length > 0 ? 32 : 0)) / 2)

    /// Chips that were made stay, as another client may show in their card.
    property int made: 0

    spacing: 6
    onNamesChanged: made = Math.max(made, names.length)
    Component.onCompleted: made = names.length

    Repeater {
        model: chips.made

        // The chips don't outlive their card.
        // qmllint disable unqualified
        Rectangle {
            required property int index
            readonly property string project: chips.names[index] ?? ""

            visible: index < chips.names.length
            width: Math.min(chips.widest, Math.ceil(name.implicitWidth) + 28)
            height: 22
            radius: 11
            color: Qt.alpha(Theme.primaryText, Theme.dark ? 0.07 : 0.05)

            ColorSign {
                anchors { left: parent.left; leftMargin: 8; verticalCenter: parent.verticalCenter }
                width: 6
                height: 6
                tint: Tint.fromHex(chips.tints[parent.index] ?? "")
            }

            PlainText {
                id: name

                anchors {
                    left: parent.left; leftMargin: 19
                    right: parent.right; rightMargin: 9
                    verticalCenter: parent.verticalCenter
                }
                text: parent.project
                size: Theme.captionSize
                color: Theme.secondaryText
                Accessible.ignored: true
            }
        }
        // qmllint enable unqualified
    }

    PlainText {
        height: 22
        verticalAlignment: Text.AlignVCenter
        visible: text.length > 0
        text: chips.more
        size: Theme.captionSize
        color: Theme.secondaryText
        font.family: Theme.tabularFamily
        Accessible.ignored: true
    }
}
