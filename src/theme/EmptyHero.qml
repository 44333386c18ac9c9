// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// What stands where there is nothing yet: what will be there, and how it comes about.
ColumnLayout {
    id: hero

    property string icon: ""
    property var colors: Theme.primaryGradient
    property string title: ""
    property string message: ""
    default property alias actions: row.data

    spacing: 14

    IconTile {
        Layout.topMargin: 40
        Layout.alignment: Qt.AlignHCenter
        icon: hero.icon
        colors: hero.colors
        size: 56
    }

    PlainText {
        Layout.fillWidth: true
        Layout.leftMargin: 40
        Layout.rightMargin: 40
        horizontalAlignment: Text.AlignHCenter
        text: hero.title
        size: 22
        font.weight: Font.Medium
        wrapMode: Text.Wrap
        Accessible.role: Accessible.Heading
    }

    PlainText {
        Layout.fillWidth: true
        Layout.leftMargin: 40
        Layout.rightMargin: 40
        Layout.maximumWidth: 420
        Layout.alignment: Qt.AlignHCenter
        horizontalAlignment: Text.AlignHCenter
        text: hero.message
        color: Theme.secondaryText
        lineHeight: 1.25
        wrapMode: Text.Wrap
    }

    RowLayout {
        id: row

        Layout.alignment: Qt.AlignHCenter
        Layout.bottomMargin: 40
        spacing: 10
    }
}
