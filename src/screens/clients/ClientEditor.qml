// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Clients

/// The sheet in which a client is added or changed. In its address Return is a line, and Ctrl+Return saves.
FormSheet {
    id: editor

    required property ClientEditorModel model

    form: model
    icon: "person"
    colors: Theme.violetGradient
    sheetWidth: 540
    onEntered: rows.takeFocus()

    ClientEditorForm {
        id: rows

        Layout.fillWidth: true
        Layout.fillHeight: true
        model: editor.model
    }
}
