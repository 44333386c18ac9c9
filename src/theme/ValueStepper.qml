// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme

/// Two buttons that make a number smaller and larger. The text beside it says the number.
Basic.SpinBox {
    id: stepper

    property string label: ""
    property bool looksFocused: visualFocus || activeFocus

    implicitWidth: 64
    implicitHeight: 28
    padding: 0
    opacity: enabled ? 1 : 0.45
    contentItem: Item {}
    Accessible.role: Accessible.SpinBox
    Accessible.name: label

    component StepSign: Rectangle {
        id: sign

        property string iconName: ""
        property bool looksHovered: false
        property bool looksPressed: false

        implicitWidth: 32
        implicitHeight: 28
        radius: Theme.fieldRadius
        color: looksPressed ? Theme.cardBorderStrong : looksHovered ? Theme.cardFillHover : "transparent"

        Icon {
            anchors.centerIn: parent
            name: sign.iconName
            opacity: sign.enabled ? 1 : 0.35
        }
    }

    down.indicator: StepSign {
        iconName: "minus"
        looksHovered: stepper.down.hovered
        looksPressed: stepper.down.pressed
    }

    up.indicator: StepSign {
        x: stepper.width - width
        iconName: "plus"
        looksHovered: stepper.up.hovered
        looksPressed: stepper.up.pressed
    }

    background: Rectangle {
        radius: Theme.fieldRadius
        color: Theme.cardFill
        border { width: 1; color: Theme.cardBorderStrong }

        Hairline {
            anchors.centerIn: parent
            height: 16
            color: Theme.cardBorderStrong
        }

        FocusRing {
            shows: stepper.looksFocused
            corner: Theme.fieldRadius
        }
    }
}
