// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// One of a row of suggestions, which is marked while it holds.
PressButton {
    id: chip

    property bool chosen: false

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: 26
    leftPadding: 10
    rightPadding: 10
    opacity: !enabled ? 0.45 : looksPressed ? 0.8 : 1
    Accessible.role: Accessible.RadioButton
    Accessible.checkable: true
    Accessible.checked: chosen

    contentItem: PlainText {
        verticalAlignment: Text.AlignVCenter
        text: chip.text
        size: Theme.calloutSize
        color: chip.chosen ? Theme.inverseFill : Theme.primaryText
        font.family: Theme.tabularFamily
        font.weight: Font.Medium
        Accessible.ignored: true
    }

    background: Rectangle {
        radius: height / 2
        color: chip.chosen ? Theme.inverseText : chip.looksHovered ? Theme.cardFillHover : Theme.cardFill
        border { width: chip.chosen ? 0 : 1; color: Theme.cardBorderStrong }

        FocusRing {
            shows: chip.looksFocused
            corner: parent.height / 2
        }
    }
}
