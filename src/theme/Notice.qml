// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// Says what happened, over a screen. It shows while it has a text, and asks to be dismissed once that has stood long
/// enough to be read, never while the pointer or the focus is on it; or by Escape.
Rectangle {
    id: notice

    property string text: ""
    /// What can be done about it; empty for nothing.
    property string actionText: ""
    property string actionHelp: ""
    property real widest: 560

    readonly property bool isWanted: text.length > 0
    /// In milliseconds: long enough for a slow reader, and for one who has to find it first.
    readonly property int readingTime: Math.max(8000, 4000 + 80 * text.length)
    readonly property bool hasKeyboard: action.activeFocus || dismissal.activeFocus
    readonly property bool isHeld: pointer.hovered || hasKeyboard
    readonly property alias timer: timer

    /// The last text there was, which stands while the notice fades.
    property string shown: ""

    signal acted()
    signal dismissed()

    onTextChanged: {
        if (text.length === 0)
            return;
        shown = text;
        if (timer.running)
            timer.restart();
    }
    Component.onCompleted: shown = text

    implicitWidth: Math.min(widest, row.implicitWidth + row.anchors.leftMargin + row.anchors.rightMargin)
    implicitHeight: row.implicitHeight + 2 * 10
    visible: opacity > 0
    opacity: isWanted ? 1 : 0
    radius: Theme.rowRadius
    color: Theme.cardFillHover
    border { width: 1; color: Theme.cardBorderStrong }
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text
    Accessible.ignored: !isWanted

    Keys.onEscapePressed: dismissed()

    Behavior on opacity { NumberAnimation { duration: Theme.easing } }

    SoftShadow {
        corner: Theme.rowRadius
        strength: 0.24
    }

    Timer {
        id: timer

        running: notice.isWanted && !notice.isHeld
        interval: notice.readingTime
        onTriggered: notice.dismissed()
    }

    HoverHandler {
        id: pointer
    }

    RowLayout {
        id: row

        anchors { left: parent.left; leftMargin: 16; right: parent.right; rightMargin: 10; verticalCenter: parent.verticalCenter }
        spacing: 16

        PlainText {
            Layout.fillWidth: true
            text: notice.shown
            wrapMode: Text.Wrap
            elide: Text.ElideNone
        }

        LinkButton {
            id: action

            visible: text.length > 0
            text: notice.actionText
            help: notice.actionHelp
            onClicked: notice.acted()
        }

        IconButton {
            id: dismissal

            size: 24
            iconName: "cross"
            label: "Dismiss"
            onClicked: notice.dismissed()
        }
    }
}
