// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Gallery

/// A sheet with a form as an example.
FormSheet {
    id: sheet

    required property GalleryForm model

    form: model
    icon: "person"
    colors: Theme.violetGradient
    sheetWidth: 440
    onEntered: name.takeFocus()

    FormTextField {
        id: name

        Layout.fillWidth: true
        field: sheet.model.name
        label: "Name"
        prompt: "Name"
    }

    FormTextField {
        Layout.fillWidth: true
        field: sheet.model.email
        label: "Email"
        prompt: "Email"
        problem: field.text === "" || field.text.includes("@") ? "" : "Enter an address like ana@example.com"
    }

    ToggleSwitch { Layout.fillWidth: true; text: "Override client rate"; checked: true }
}
