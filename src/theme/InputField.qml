// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// A line to type into.
Basic.TextField {
    id: field

    /// What the field is for, for assistive technology; the placeholder where there is none.
    property string label: ""
    property bool invalid: false
    /// Without ground and outline until it has the focus, for a text that stands on a card.
    property bool plain: false
    property bool looksFocused: activeFocus
    /// Whether it holds more than shows, which dots say while nobody types.
    readonly property bool isCut: !activeFocus && contentWidth > width - leftPadding - rightPadding

    implicitWidth: 200
    implicitHeight: 32
    leftPadding: 10
    rightPadding: 10
    topPadding: 7
    bottomPadding: 7
    selectByMouse: true
    // Without the focus a long text shows its beginning.
    autoScroll: activeFocus
    opacity: enabled ? 1 : 0.45
    color: isCut ? "transparent" : Theme.primaryText
    placeholderTextColor: Theme.tertiaryText
    selectionColor: Theme.selectionFill
    selectedTextColor: Theme.primaryText
    font { family: Theme.textFamily; pixelSize: Theme.bodySize }
    Accessible.role: Accessible.EditableText
    Accessible.name: label.length > 0 ? label : placeholderText

    background: Rectangle {
        radius: Theme.fieldRadius
        color: field.plain && !field.looksFocused && !field.hovered ? "transparent" : Theme.cardFill
        border {
            width: field.looksFocused ? 2 : field.plain && !field.hovered ? 0 : 1
            color: field.invalid ? Theme.dangerText : field.looksFocused ? Theme.focusRing : Theme.cardBorderStrong
        }
    }

    OnDemand {
        anchors {
            fill: parent
            leftMargin: field.leftPadding; rightMargin: field.rightPadding
            topMargin: field.topPadding; bottomMargin: field.bottomPadding
        }
        wanted: field.isCut
        visible: wanted

        // The text doesn't outlive its field.
        // qmllint disable unqualified
        sourceComponent: PlainText {
            text: field.text
            size: field.font.pixelSize
            font { family: field.font.family; weight: field.font.weight }
            verticalAlignment: Text.AlignVCenter
            Accessible.ignored: true
        }
        // qmllint enable unqualified
    }
}
