// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T
import Elmworth.Theme

/// One of a row of suggestions, which is marked while it holds. Space presses it; Return is left to whoever stands
/// around.
T.RadioButton {
    id: chip

    property bool chosen: false
    property bool looksHovered: hovered
    property bool looksPressed: down
    property bool looksFocused: visualFocus

    /// Does what a click does.
    function press(): void {
        if (enabled)
            clicked();
    }

    // Whoever shows the chips knows which one holds; a click alone marks none.
    checked: chosen
    checkable: false
    autoExclusive: false
    hoverEnabled: true

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: 26
    leftPadding: 10
    rightPadding: 10
    opacity: !enabled ? 0.45 : looksPressed ? 0.8 : 1
    Accessible.role: Accessible.RadioButton
    Accessible.name: text
    Accessible.onPressAction: press()

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
