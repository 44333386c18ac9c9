// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A card that answers to the pointer and can be selected.
Item {
    id: card

    property real corner: Theme.cardRadius
    property bool selected: false
    property bool hovering: pointer.hovered
    property real padding: 16
    default property alias content: holder.data

    readonly property bool raised: hovering || selected

    readonly property Item body: holder.children.length > 0 ? holder.children[0] : null

    implicitWidth: (body ? body.implicitWidth : 0) + 2 * padding
    implicitHeight: (body ? body.implicitHeight : 0) + 2 * padding

    HoverHandler { id: pointer }

    Rectangle {
        anchors.fill: parent
        radius: card.corner
        color: card.raised ? Theme.cardFillHover : Theme.cardFill
        border { width: 1; color: card.raised ? Theme.cardBorderStrong : Theme.cardBorder }

        Behavior on color { ColorAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
        Behavior on border.color { ColorAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
    }

    Item {
        id: holder

        anchors { fill: parent; margins: card.padding }
    }
}
