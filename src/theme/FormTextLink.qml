// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// Keeps the text of `input` and a text of a form equal, whichever of them changes.
Binding {
    id: link

    required property FormText field
    required property Item input
    readonly property Connections typing: Connections {
        target: link.input

        function onTextChanged(): void { link.field.text = link.input.text; } // qmllint disable
    }

    target: input
    property: "text"
    value: field.text
    restoreMode: Binding.RestoreNone
}
