// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// A setting: what it is called, and the control for it. What went wrong with it stands below.
Item {
    id: row

    property string label: ""
    /// As wide as the labels of the other rows; wider for one whose control is small.
    property real labelWidth: 148
    /// A sentence; empty while there is nothing wrong.
    property string problem: ""
    default property alias control: line.data

    Layout.fillWidth: true
    implicitHeight: column.implicitHeight + 2 * 5

    Hairline {
        x: 14
        width: row.width - 2 * x
        visible: row.y > 0
    }

    ColumnLayout {
        id: column

        anchors { fill: parent; leftMargin: 14; rightMargin: 14; topMargin: 5; bottomMargin: 5 }
        spacing: 4

        RowLayout {
            id: line

            Layout.fillWidth: true
            Layout.minimumHeight: 32
            spacing: 12

            PlainText {
                Layout.preferredWidth: row.labelWidth
                Layout.preferredHeight: 32
                Layout.alignment: Qt.AlignTop
                visible: text.length > 0
                text: row.label
                verticalAlignment: Text.AlignVCenter
                // The control says it.
                Accessible.ignored: true
            }
        }

        PlainText {
            Layout.fillWidth: true
            visible: text.length > 0
            text: row.problem
            size: Theme.calloutSize
            color: Theme.dangerText
            wrapMode: Text.Wrap
            Accessible.role: Accessible.AlertMessage
        }
    }
}
