// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Panel

/// The sheet in which an entry is added or changed. In its notes Return is a line, and Ctrl+Return saves.
FormSheet {
    id: editor

    required property EntryEditorModel model

    form: model
    icon: model.icon
    colors: model.isLocked ? Theme.amberGradient : [Tint.fromHex(model.iconColor)]
    sheetWidth: 520
    onEntered: rows.takeFocus()

    EntryEditorForm {
        id: rows

        Layout.fillWidth: true
        Layout.fillHeight: true
        model: editor.model
    }
}
