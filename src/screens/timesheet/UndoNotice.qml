// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Timesheet

/// Says what was done, and offers to take it back, for a moment.
Rectangle {
    id: notice

    required property EntryCommandsModel commands

    readonly property bool isWanted: commands.notice.length > 0

    implicitWidth: row.implicitWidth + 2 * 16
    implicitHeight: 44
    visible: opacity > 0
    opacity: isWanted ? 1 : 0
    radius: Theme.rowRadius
    color: Theme.cardFillHover
    border { width: 1; color: Theme.cardBorderStrong }
    Accessible.role: Accessible.AlertMessage
    Accessible.name: commands.notice
    Accessible.ignored: !isWanted

    Behavior on opacity { NumberAnimation { duration: Theme.easing } }

    SoftShadow {
        corner: Theme.rowRadius
        strength: 0.24
    }

    Timer {
        running: notice.isWanted && !hover.hovered && !undo.activeFocus
        interval: 8000
        onTriggered: notice.commands.dismissNotice()
    }

    HoverHandler {
        id: hover
    }

    RowLayout {
        id: row

        anchors { fill: parent; leftMargin: 16; rightMargin: 10 }
        spacing: 16

        PlainText {
            Layout.fillWidth: true
            text: notice.commands.notice
        }

        LinkButton {
            id: undo

            visible: notice.commands.noticeOffersUndo && notice.commands.canUndo
            text: "Undo"
            help: "Ctrl+Z"
            onClicked: { notice.commands.undo(); }
        }

        IconButton {
            size: 24
            systemImage: "xmark"
            label: "Dismiss"
            onClicked: notice.commands.dismissNotice()
        }
    }
}
