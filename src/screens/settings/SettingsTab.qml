// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Elmworth.Theme

/// One of the tabs at the head of the window. No PressButton, because a control of Qt's is to assistive technology
/// what its kind is, whatever role it is given.
T.TabButton {
    id: tab

    required property string title
    required property string iconName
    property bool selected: false
    readonly property bool looksHovered: hovered

    function press(): void {
        if (enabled)
            clicked();
    }

    text: title
    checkable: false
    hoverEnabled: true
    focusPolicy: selected ? Qt.StrongFocus : Qt.NoFocus
    activeFocusOnTab: selected
    implicitWidth: 92
    implicitHeight: 54
    opacity: down ? 0.8 : 1
    Accessible.role: Accessible.PageTab
    Accessible.name: title
    Accessible.onPressAction: press()
    Accessible.selectable: true
    Accessible.selected: selected

    contentItem: ColumnLayout {
        spacing: 3

        Icon {
            Layout.alignment: Qt.AlignHCenter
            name: tab.iconName
            size: 20
            color: tab.selected ? Theme.accentText : tab.looksHovered ? Theme.primaryText : Theme.secondaryText
        }

        PlainText {
            Layout.alignment: Qt.AlignHCenter
            text: tab.title
            size: Theme.calloutSize
            color: tab.selected || tab.looksHovered ? Theme.primaryText : Theme.secondaryText
            font.weight: Font.Medium
            Accessible.ignored: true
        }
    }

    background: Rectangle {
        radius: Theme.rowRadius
        color: tab.selected || tab.looksHovered ? Theme.cardFillHover : Qt.alpha(Theme.cardFillHover, 0)
        border { width: tab.selected ? 1 : 0; color: Theme.cardBorderStrong }

        FocusRing {
            shows: tab.visualFocus
            corner: Theme.rowRadius
        }

        Behavior on color { ColorAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
    }
}
