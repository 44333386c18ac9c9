// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// Several lines to type into, or only to read. Tab leaves it.
Basic.TextArea {
    id: area

    property string label: ""
    property bool looksFocused: activeFocus

    function leave(forward: bool): void {
        const next = nextItemInFocusChain(forward);
        next.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    implicitWidth: 200
    leftPadding: 10
    rightPadding: 10
    topPadding: 7
    bottomPadding: 7
    selectByMouse: true
    wrapMode: TextEdit.Wrap
    textFormat: TextEdit.PlainText
    opacity: enabled ? 1 : 0.45
    color: readOnly ? Theme.secondaryText : Theme.primaryText
    placeholderTextColor: Theme.tertiaryText
    selectionColor: Theme.selectionFill
    selectedTextColor: Theme.primaryText
    font { family: Theme.textFamily; pixelSize: Theme.bodySize }
    Keys.onTabPressed: event => leave(!(event.modifiers & Qt.ShiftModifier))
    Keys.onBacktabPressed: leave(false)
    Accessible.role: Accessible.EditableText
    Accessible.name: label.length > 0 ? label : placeholderText
    Accessible.multiLine: true
    Accessible.readOnly: readOnly

    background: Rectangle {
        radius: Theme.fieldRadius
        color: Theme.cardFill
        border {
            width: area.looksFocused ? 2 : 1
            color: area.looksFocused ? Theme.focusRing : Theme.cardBorderStrong
        }
    }
}
