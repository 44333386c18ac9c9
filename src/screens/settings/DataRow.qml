// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// Something to do with all of the library: what it is, a few words about it, and the button.
SettingsRow {
    id: row

    property string title: ""
    property string subtitle: ""
    /// How it stands at the moment; a warning when something is to be done about it.
    property string status: ""
    property bool isWarning: false
    property alias button: button.text
    property alias buttonEnabled: button.enabled

    signal clicked()

    ColumnLayout {
        Layout.fillWidth: true
        Layout.topMargin: 6
        Layout.bottomMargin: 6
        spacing: 2

        PlainText {
            Layout.fillWidth: true
            text: row.title
            font.weight: Font.Medium
            wrapMode: Text.Wrap
        }

        PlainText {
            Layout.fillWidth: true
            text: row.subtitle
            size: Theme.calloutSize
            color: Theme.secondaryText
            wrapMode: Text.Wrap
        }

        RowLayout {
            Layout.fillWidth: true
            Layout.topMargin: 2
            visible: row.status.length > 0
            spacing: 6

            Icon {
                Layout.alignment: Qt.AlignTop
                visible: row.isWarning
                name: "warning"
                size: 14
                color: Theme.warningText
            }

            PlainText {
                Layout.fillWidth: true
                text: row.status
                size: Theme.calloutSize
                color: row.isWarning ? Theme.warningText : Theme.secondaryText
                wrapMode: Text.Wrap
            }
        }
    }

    GlowButton {
        id: button

        onClicked: row.clicked()
    }
}
