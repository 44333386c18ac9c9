// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Projects

/// The sheet in which a project is added or changed.
FormSheet {
    id: editor

    required property ProjectEditorModel model

    form: model
    icon: "folder-filled"
    colors: [Tint.fromHex(model.colorHex)]
    sheetWidth: 500
    onEntered: rows.takeFocus()

    ProjectEditorForm {
        id: rows

        Layout.fillWidth: true
        model: editor.model
    }
}
