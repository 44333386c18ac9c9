// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Layouts
import Elmworth.Theme

/// All that shows when the library can't be opened: why, and what can be done.
Basic.ApplicationWindow {
    id: window

    /// The reason, and the way out.
    required property var model

    readonly property int fittingHeight: Math.min(sheet.implicitHeight, Screen.desktopAvailableHeight)

    title: "Elmworth"
    visible: true
    width: 520
    height: fittingHeight
    minimumWidth: 520
    maximumWidth: 520
    minimumHeight: fittingHeight
    maximumHeight: fittingHeight
    color: Theme.panelFill

    Shortcut {
        sequences: ["Escape", "Ctrl+W", "Ctrl+Q"]
        onActivated: window.close()
    }

    SheetScaffold {
        id: sheet

        anchors.fill: parent
        radius: 0
        border.width: 0
        sheetWidth: window.width
        icon: "warning"
        colors: Theme.dangerGradient
        title: "The library can't be opened"
        Accessible.role: Accessible.AlertMessage
        Accessible.name: title
        Accessible.description: window.model.reason
        actions: [
            GlowButton {
                text: "Quit"
                prominent: true
                focus: true
                onClicked: window.close()
            }
        ]

        PlainText {
            Layout.fillWidth: true
            text: window.model.reason
            wrapMode: Text.Wrap
            elide: Text.ElideNone
            lineHeight: 1.25
        }

        PlainText {
            Layout.fillWidth: true
            text: window.model.wayOut
            wrapMode: Text.Wrap
            elide: Text.ElideNone
            lineHeight: 1.25
            color: Theme.secondaryText
        }
    }
}
