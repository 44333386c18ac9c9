// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A card. Its content is one item that fills the card inside `padding` and gives it its size.
Item {
    id: card

    property real corner: Theme.cardRadius
    property real padding: 16
    property bool shadow: false
    default property alias content: holder.data

    readonly property Item body: holder.children.length > 0 ? holder.children[0] : null

    implicitWidth: (body ? body.implicitWidth : 0) + 2 * padding
    implicitHeight: (body ? body.implicitHeight : 0) + 2 * padding

    SoftShadow {
        visible: card.shadow
        corner: card.corner
    }

    Rectangle {
        anchors.fill: parent
        radius: card.corner
        color: Theme.cardFill
        border { width: 1; color: Theme.cardBorder }
    }

    Item {
        id: holder

        anchors { fill: parent; margins: card.padding }
    }
}
