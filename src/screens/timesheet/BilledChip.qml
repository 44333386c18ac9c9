// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// Says that an entry is billed, and on which invoice when the pointer asks.
Chip {
    id: chip

    /// Gives the help for a line.
    property var helpText: null
    property int line: -1

    text: "Billed"
    tint: Theme.mintGradient[0]
    Accessible.ignored: true

    HoverHandler {
        id: hover
    }

    Loader {
        active: hover.hovered && chip.helpText !== null

        // The tip doesn't outlive its chip.
        // qmllint disable unqualified
        sourceComponent: HelpTip {
            parent: chip
            text: chip.helpText(chip.line)
            visible: true
        }
        // qmllint enable unqualified
    }
}
