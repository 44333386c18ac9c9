// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A choice of one of some colours. Tab comes to the chosen one, and the arrows go on from there.
Row {
    id: swatches

    property var palette: []
    /// Where the chosen colour stands; -1 for none of them.
    property int chosen: -1

    signal picked(int row)

    function pick(row: int): void {
        const count = palette.length;
        const next = (row + count) % count;
        picked(next);
        repeater.itemAt(next).forceActiveFocus(Qt.TabFocusReason);
    }

    spacing: 10
    Accessible.role: Accessible.Grouping
    Accessible.name: "Color"

    Repeater {
        id: repeater

        model: swatches.palette

        // The swatches don't outlive their row.
        // qmllint disable unqualified
        Item {
            id: swatch

            required property int index
            required property string modelData

            readonly property bool isChosen: swatches.chosen === index
            readonly property color tint: Tint.fromHex(modelData)

            width: 24
            height: swatches.height
            // What has the focus has to keep it.
            activeFocusOnTab: isChosen || activeFocus || (swatches.chosen < 0 && index === 0)
            Accessible.role: Accessible.RadioButton
            Accessible.name: "Color " + (index + 1)
            Accessible.checkable: true
            Accessible.checked: isChosen
            Accessible.focusable: true
            Accessible.onPressAction: swatches.pick(index)

            Keys.onLeftPressed: swatches.pick(swatches.chosen < 0 ? index : index - 1)
            Keys.onUpPressed: swatches.pick(swatches.chosen < 0 ? index : index - 1)
            Keys.onRightPressed: swatches.pick(swatches.chosen < 0 ? index : index + 1)
            Keys.onDownPressed: swatches.pick(swatches.chosen < 0 ? index : index + 1)
            Keys.onSpacePressed: swatches.pick(index)

            TapHandler { onTapped: swatches.pick(swatch.index) }

            HoverHandler { id: hover }

            ColorSign {
                anchors.centerIn: parent
                width: 24
                height: 24
                tint: swatch.tint
                ground: Theme.panelFill
                scale: hover.hovered && !swatch.isChosen ? 1.1 : 1

                FocusRing {
                    shows: swatch.activeFocus
                    corner: 12
                }

                Icon {
                    anchors.centerIn: parent
                    visible: swatch.isChosen
                    name: "check"
                    size: 16
                    color: Tint.inkOn([swatch.tint])
                }

                Behavior on scale { NumberAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
            }
        }
        // qmllint enable unqualified
    }
}
