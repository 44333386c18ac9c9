// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Elmworth.Theme

/// A section of the main window. No PressButton, because a control of Qt's is to assistive technology what its
/// kind is, whatever role it is given.
T.TabButton {
    id: row

    required property int index
    required property string title
    required property string iconName
    required property string shortcut
    required property string hint
    property bool selected: false
    readonly property bool looksHovered: hovered

    function press(): void {
        if (enabled)
            clicked();
    }

    function focusNeighbour(forward: bool): void {
        const neighbour = nextItemInFocusChain(forward) as SidebarRow;
        if (neighbour)
            neighbour.forceActiveFocus(Qt.TabFocusReason);
    }

    text: title
    checkable: false
    hoverEnabled: true
    focusPolicy: Qt.StrongFocus
    implicitHeight: 36
    leftPadding: 10
    rightPadding: 10
    opacity: down ? 0.8 : 1
    Accessible.role: Accessible.PageTab
    Accessible.name: title
    Accessible.description: hint
    Accessible.onPressAction: press()
    Accessible.selectable: true
    Accessible.selected: selected

    Keys.onReturnPressed: press()
    Keys.onEnterPressed: press()
    Keys.onUpPressed: focusNeighbour(false)
    Keys.onDownPressed: focusNeighbour(true)

    Shortcut {
        sequence: row.shortcut
        onActivated: row.clicked()
    }

    contentItem: RowLayout {
        spacing: 10

        Icon {
            name: row.iconName
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

    OnDemand {
        wanted: row.hovered || row.visualFocus

        // The tip doesn't outlive its row.
        // qmllint disable unqualified
        sourceComponent: HelpTip {
            parent: row
            text: row.hint
            visible: (row.hovered || row.visualFocus) && !row.selected
        }
        // qmllint enable unqualified
    }

    background: Rectangle {
        radius: Theme.rowRadius
        color: row.selected || row.looksHovered ? Theme.cardFillHover : Qt.alpha(Theme.cardFillHover, 0)
        border { width: row.selected ? 1 : 0; color: Theme.cardBorderStrong }

        FocusRing {
            shows: row.visualFocus
            corner: Theme.rowRadius
        }

        Behavior on color { ColorAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
    }
}
