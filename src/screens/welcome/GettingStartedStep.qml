// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// A step of the checklist: a button until it is done.
PressButton {
    id: step

    property string title: ""
    property bool isDone: false

    text: title
    enabled: !isDone
    implicitHeight: 34
    leftPadding: 8
    rightPadding: 8
    opacity: looksPressed ? 0.8 : 1
    Accessible.description: isDone ? "Done" : "To do"

    contentItem: RowLayout {
        spacing: 8

        Icon {
            name: step.isDone ? "check-circle-filled" : "circle"
            size: 18
            color: step.isDone ? Theme.mintGradient[0] : Theme.tertiaryText
        }

        PlainText {
            Layout.fillWidth: true
            text: step.title
            color: step.isDone ? Theme.secondaryText : Theme.primaryText
            font.weight: Font.Medium
            Accessible.ignored: true
        }
    }

    background: Rectangle {
        radius: Theme.fieldRadius
        color: step.looksHovered && step.enabled ? Theme.cardFillHover : Qt.alpha(Theme.cardFillHover, 0)

        FocusRing {
            shows: step.looksFocused
            corner: Theme.fieldRadius
        }

        Behavior on color { ColorAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
    }
}
