// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Tracking

/// Asks whether a timer was forgotten, and offers earlier ends.
ColumnLayout {
    id: warning

    required property LongRunningWarningModel model

    spacing: 6

    RowLayout {
        spacing: 8

        SystemImage {
            name: "exclamationmark.triangle.fill"
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

    PopupMenu {
        id: choices

        Instantiator {
            model: warning.model.choices
            onObjectAdded: (index, object) => choices.insertItem(index, object as PopupMenuItem)
            onObjectRemoved: (index, object) => choices.removeItem(object as PopupMenuItem)

            // The items live as long as the menu.
            // qmllint disable unqualified
            delegate: PopupMenuItem {
                required property int index
                required property string modelData

                text: modelData
                onTriggered: warning.model.stopAt(index)
            }
            // qmllint enable unqualified
        }

        PopupMenuSeparator {}

        PopupMenuItem {
            text: "Now"
            onTriggered: warning.model.stopNow()
        }
    }
}
