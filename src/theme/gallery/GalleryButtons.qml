// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Gallery

/// The buttons: at rest, hovered, pressed, with the keyboard's focus, disabled.
GallerySection {
    title: "Buttons"

    component States: RowLayout {
        id: stateRow

        property Component button
        readonly property var looks: [{}, { looksHovered: true }, { looksPressed: true }, { looksFocused: true }, { enabled: false }]

        function dress(item: Item, looks: var): void {
            for (const look in looks)
                if (look in item)
                    item[look] = looks[look];
        }

        spacing: 12

        Repeater {
            model: stateRow.looks

            // The row outlives its states.
            // qmllint disable unqualified
            Loader {
                required property var modelData

                sourceComponent: stateRow.button
                onLoaded: stateRow.dress(item, modelData)
            }
            // qmllint enable unqualified
        }
    }

    GridLayout {
        columns: 2
        rowSpacing: 16
        columnSpacing: 40

        States { button: GlowButton { text: "Plain"; iconName: "table" } }
        States { button: GlowButton { text: "Prominent"; prominent: true; iconName: "plus" } }
        States { button: GlowButton { text: "Primary"; prominent: true; colors: Theme.primaryGradient } }
        States { button: GlowButton { text: "Delete"; prominent: true; colors: Theme.dangerGradient } }
        States { button: GlowButton { text: "Mint"; prominent: true; colors: Theme.mintGradient } }
        States { button: GlowButton { text: "Amber"; prominent: true; colors: Theme.amberGradient } }
        States { button: FilterButton { text: "This Week"; iconName: "calendar" } }
        States { button: FilterButton { text: "Unbilled"; iconName: "tray-full"; opensList: false; active: true } }
        States { button: CircleIconButton { iconName: "play"; label: "Start" } }
        States { button: CircleIconButton { iconName: "stop"; colors: Theme.coralGradient; size: 40; label: "Stop" } }
        States { button: IconButton { iconName: "plus"; label: "Add" } }
        States { button: LinkButton { text: "Open Settings" } }
        States { button: ToggleSwitch { text: "Off" } }
        States { button: ToggleSwitch { text: "On"; checked: true } }
        States { button: SegmentedPicker { options: ["1 min", "6 min"]; currentIndex: 1 } }
        States { button: ValueStepper { label: "Hours" } }
    }

    GlowButton {
        text: "Expands"
        prominent: true
        expands: true
    }
}
