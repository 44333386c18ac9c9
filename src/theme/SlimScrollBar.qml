// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// A scroll bar that stands back until it is wanted.
Basic.ScrollBar {
    id: bar

    readonly property real thickness: hovered || pressed ? 8 : 6

    padding: 2
    minimumSize: 0.06
    visible: size < 1 && policy !== Basic.ScrollBar.AlwaysOff
    Accessible.role: Accessible.ScrollBar
    Accessible.name: "Scroll"

    contentItem: Rectangle {
        implicitWidth: bar.thickness
        implicitHeight: bar.thickness
        radius: bar.thickness / 2
        color: Theme.tertiaryText
        opacity: bar.pressed ? 1 : bar.hovered ? 0.8 : 0.5

        Behavior on opacity { NumberAnimation { duration: Theme.easing } }
    }
}
