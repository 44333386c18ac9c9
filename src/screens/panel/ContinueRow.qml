// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Panel

/// Takes the last entry up again.
ListRow {
    id: row

    required property ContinueRowModel model

    title: row.model.title
    subtitle: row.model.subtitle
    help: "Ctrl+Shift+R"
    onClicked: row.model.continueEntry()

    Icon {
        name: "arrow-clockwise"
        color: row.raised ? Theme.primaryText : Theme.secondaryText
    }
}
