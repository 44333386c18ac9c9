// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Panel

/// Asks what becomes of the time that the computer slept while the timer ran.
ColumnLayout {
    id: prompt

    required property AwayPromptModel model

    spacing: 8

    RowLayout {
        spacing: 8

        Icon {
            name: "moon"
            color: Theme.accentText
        }

        PlainText {
            Layout.fillWidth: true
            text: prompt.model.text
            size: Theme.calloutSize
            wrapMode: Text.Wrap
        }
    }

    RowLayout {
        spacing: 8

        GlowButton {
            Layout.fillWidth: true
            text: "Keep"
            onClicked: prompt.model.keep()
        }

        GlowButton {
            Layout.fillWidth: true
            text: "Discard"
            help: prompt.model.discardHelp
            onClicked: prompt.model.discard()
        }
    }
}
