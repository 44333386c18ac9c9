// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A button that reads as a part of the text around it.
PressButton {
    id: button

    implicitWidth: implicitContentWidth
    implicitHeight: implicitContentHeight
    opacity: !enabled ? 0.45 : looksPressed ? 0.8 : 1

    contentItem: PlainText {
        text: button.text
        color: Theme.accentText
        font.weight: Font.Medium
        font.underline: button.looksHovered
        Accessible.ignored: true
    }

    background: Item {
        FocusRing {
            shows: button.looksFocused
            corner: 2
        }
    }
}
