// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// A section of the main window.
PressButton {
    id: row

    required property int index
    required property string title
    required property string systemImage
    required property string shortcut
    required property string hint
    property bool selected: false

    function focusNeighbour(forward: bool): void {
        const neighbour = nextItemInFocusChain(forward) as SidebarRow;
        if (neighbour)
            neighbour.forceActiveFocus(Qt.TabFocusReason);
    }

    text: title
    help: hint
    implicitHeight: 36
    leftPadding: 10
    rightPadding: 10
    opacity: looksPressed ? 0.8 : 1
    Accessible.role: Accessible.PageTab
    Accessible.selected: selected

    Keys.onUpPressed: focusNeighbour(false)
    Keys.onDownPressed: focusNeighbour(true)

    Shortcut {
        sequence: row.shortcut
        onActivated: row.clicked()
    }

    contentItem: RowLayout {
        spacing: 10

        SystemImage {
            name: row.systemImage
            size: 18
            color: row.selected ? Theme.accentText : Theme.secondaryText
        }

        PlainText {
            Layout.fillWidth: true
            text: row.title
            color: row.selected || row.looksHovered ? Theme.primaryText : Theme.secondaryText
            font.weight: Font.Medium
            Accessible.ignored: true
        }
    }

    background: Rectangle {
        radius: Theme.rowRadius
        color: row.selected || row.looksHovered ? Theme.cardFillHover : Qt.alpha(Theme.cardFillHover, 0)
        border { width: row.selected ? 1 : 0; color: Theme.cardBorderStrong }

        FocusRing {
            shows: row.looksFocused
            corner: Theme.rowRadius
        }

        Behavior on color { ColorAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
    }
}
