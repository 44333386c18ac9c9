// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// A sentence above everything else in the window.
Rectangle {
    id: line

    property string text: ""

    implicitHeight: row.implicitHeight + 16
    color: Theme.cardFill

    RowLayout {
        id: row

        anchors { fill: parent; leftMargin: 20; rightMargin: 20; topMargin: 8; bottomMargin: 8 }
        spacing: 10

        Icon {
            name: "warning"
            size: 16
            color: Theme.warningText
        }

        PlainText {
            Layout.fillWidth: true
            text: line.text
            wrapMode: Text.Wrap
            Accessible.role: Accessible.AlertMessage
        }
    }

    Hairline {
        anchors.bottom: parent.bottom
        width: parent.width
        height: 1
    }
}
