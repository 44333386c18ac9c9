// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Panel

/// Asks whether a timer was forgotten, and offers earlier ends.
ColumnLayout {
    id: warning

    required property LongRunningWarningModel model

    spacing: 6

    RowLayout {
        spacing: 8

        Icon {
            name: "warning"
            color: Theme.warningText
        }

        PlainText {
            Layout.fillWidth: true
            text: warning.model.text
            size: Theme.calloutSize
            wrapMode: Text.Wrap
        }

        LinkButton {
            id: stopAt

            text: "Stop at…"
            onClicked: choices.popup(stopAt, 0, stopAt.height + 4)
        }
    }

    // An end some hours after the start.
    component HourItem: PopupMenuItem {
        id: item

        required property LongRunningWarningModel source
        required property int choice

        text: item.choice < item.source.choices.length ? item.source.choices[item.choice] : ""
        onTriggered: item.source.stopAt(item.choice)
    }

    PopupMenu {
        id: choices

        HourItem { source: warning.model; choice: 0 }
        HourItem { source: warning.model; choice: 1 }
        HourItem { source: warning.model; choice: 2 }
        HourItem { source: warning.model; choice: 3 }

        PopupMenuSeparator {}

        PopupMenuItem {
            text: "Now"
            onTriggered: warning.model.stopNow()
        }
    }
}
