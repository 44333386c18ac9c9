// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// Why the last change was not kept, at the foot of the window.
Rectangle {
    id: line

    property string text: ""

    implicitHeight: row.implicitHeight + 20
    color: Theme.cardFill

    Hairline { width: parent.width }

    RowLayout {
        id: row

        anchors { fill: parent; leftMargin: 20; rightMargin: 20; topMargin: 10; bottomMargin: 10 }
        spacing: 10

        Icon {
            name: "warning"
            color: Theme.warningText
        }

        PlainText {
            Layout.fillWidth: true
            text: line.text
            wrapMode: Text.Wrap
            Accessible.role: Accessible.AlertMessage
        }
    }
}
