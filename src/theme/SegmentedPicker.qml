// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A choice of a few that all show. The keyboard reaches the chosen one, and the arrows choose another.
Rectangle {
    id: picker

    property string label: ""
    property list<string> options
    property int currentIndex: 0

    /// Somebody chose another option.
    signal chosen(int index)

    function choose(index: int): void {
        if (index < 0 || index >= options.length || index === currentIndex)
            return;
        if (activeFocusWithin)
            segments.itemAt(index).forceActiveFocus(Qt.TabFocusReason);
        currentIndex = index;
        chosen(index);
    }

    readonly property bool activeFocusWithin: {
        for (let ancestor = Window.activeFocusItem; ancestor; ancestor = ancestor.parent)
            if (ancestor === picker)
                return true;
        return false;
    }

    implicitWidth: row.implicitWidth + 4
    implicitHeight: 32
    radius: height / 2
    color: Theme.cardFill
    border { width: 1; color: Theme.cardBorderStrong }
    opacity: enabled ? 1 : 0.45
    Accessible.role: Accessible.Grouping
    Accessible.name: label

    Row {
        id: row

        x: 2
        y: 2

        Repeater {
            id: segments

            model: picker.options

            // The segments don't outlive their picker.
            // qmllint disable unqualified
            PressButton {
                id: segment

                required property int index
                required property string modelData
                readonly property bool chosen: index === picker.currentIndex
                /// The keyboard reaches one of them, also while none is chosen.
                readonly property bool reachable: chosen || (picker.currentIndex < 0 && index === 0)

                text: modelData
                checked: chosen
                height: picker.height - 4
                leftPadding: 14
                rightPadding: 14
                opacity: looksPressed ? 0.8 : 1
                focusPolicy: reachable ? Qt.StrongFocus : Qt.NoFocus
                activeFocusOnTab: reachable
                Accessible.role: Accessible.RadioButton
                Accessible.checked: chosen
                onClicked: picker.choose(index)
                Keys.onLeftPressed: picker.choose(index - 1)
                Keys.onRightPressed: picker.choose(index + 1)

                contentItem: PlainText {
                    verticalAlignment: Text.AlignVCenter
                    text: segment.text
                    color: segment.chosen ? Theme.inverseFill : segment.looksHovered ? Theme.primaryText : Theme.secondaryText
                    font.weight: Font.Medium
                    Accessible.ignored: true
                }

                background: Rectangle {
                    radius: height / 2
                    color: segment.chosen ? Theme.inverseText : "transparent"

                    FocusRing {
                        shows: segment.looksFocused
                        corner: parent.height / 2
                    }
                }
            }
            // qmllint enable unqualified
        }
    }
}
