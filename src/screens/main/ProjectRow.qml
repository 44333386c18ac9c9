// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A project to start with one click.
ListRow {
    id: row

    required property int index
    required property string name
    required property string client
    required property string projectColor

    title: name
    subtitle: client
    mark: Tint.fromHex(projectColor)
    label: "Start " + name
    help: "Start " + name

    SystemImage {
        name: "play.fill"
        size: 20
        color: row.raised || row.looksFocused ? Theme.primaryText : Theme.secondaryText
    }
}
