// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// A sheet as an example.
SheetScaffold {
    id: sheet

    signal closed()

    icon: "person"
    colors: Theme.violetGradient
    title: "New Client"
    subtitle: "Rate and billing details"
    sheetWidth: 440

    InputField { Layout.fillWidth: true; placeholderText: "Name" }
    InputField { Layout.fillWidth: true; placeholderText: "Email" }
    ToggleSwitch { Layout.fillWidth: true; text: "Override client rate"; checked: true }

    actions: [
        GlowButton {
            text: "Cancel"
            onClicked: sheet.closed()
        },
        GlowButton {
            text: "Save"
            prominent: true
            onClicked: sheet.closed()
        }
    ]
}
