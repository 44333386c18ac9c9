// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// A line of a menu.
Basic.MenuItem {
    id: item

    property string iconName: ""
    /// The keys that do the same.
    property string hint: ""
    /// Whether it is the one that holds of several to choose from, which are checkable.
    property bool chosen: false
    /// Takes something away that doesn't come back.
    property bool destructive: false
    /// Where a text that is too long is cut.
    property int elide: Text.ElideRight

    readonly property color foreground: destructive ? Theme.dangerText : Theme.primaryText

    /// Does what a click does.
    function press(): void {
        if (!enabled)
            return;
        if (subMenu) {
            subMenu.open();
            subMenu.currentIndex = (subMenu as PopupMenu)?.firstEnabled() ?? 0;
            return;
        }
        if (action)
            action.trigger();
        else
            clicked();
        if (menu)
            menu.dismiss();
    }

    // Whoever shows the choices knows which one holds; a click alone changes none.
    checked: chosen
    onCheckedChanged: if (checked !== chosen) checked = Qt.binding(() => item.chosen)

    implicitHeight: 32
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    padding: 0
    leftPadding: 10
    rightPadding: 10
    opacity: enabled ? 1 : 0.45
    indicator: null
    arrow: null
    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Accessible.description: enabled ? "" : "Unavailable"
    Accessible.onPressAction: press()

    contentItem: RowLayout {
        spacing: 8

        Icon {
            visible: item.checkable || item.iconName.length > 0
            name: item.checkable ? "check" : item.iconName
            opacity: !item.checkable || item.chosen ? 1 : 0
            color: item.foreground
        }

        PlainText {
            Layout.fillWidth: true
            text: item.text
            elide: item.elide
            color: item.foreground
            Accessible.ignored: true
        }

        PlainText {
            Layout.leftMargin: 16
            visible: text.length > 0
            text: item.hint
            size: Theme.calloutSize
            color: Theme.secondaryText
            Accessible.ignored: true
        }

        Icon {
            visible: item.subMenu !== null
            name: "chevron-right"
            color: Theme.secondaryText
        }
    }

    background: Rectangle {
        radius: 6
        color: item.highlighted && item.enabled ? Theme.cardBorder : "transparent"
    }
}
