// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A project to start with one click, or with the keys that it shows.
ListRow {
    id: row

    required property int index
    required property string name
    required property string client
    required property color projectColor
    required property bool isRunning
    required property int shortcut
    required property string hint
    required property string status
    required property string image
    required help
    required property string accessibilityLabel

    title: name
    subtitle: client
    mark: projectColor
    label: accessibilityLabel
    enabled: !isRunning

    Shortcut {
        sequence: row.shortcut > 0 ? "Ctrl+" + row.shortcut : ""
        enabled: row.shortcut > 0 && row.enabled
        onActivated: row.clicked()
    }

    PlainText {
        visible: text.length > 0
        text: row.hint
        size: Theme.captionSize
        color: Theme.secondaryText
        Accessible.ignored: true
    }

    PlainText {
        visible: text.length > 0
        text: row.status
        size: Theme.calloutSize
        color: Theme.secondaryText
        Accessible.ignored: true
    }

    Icon {
        visible: name.length > 0
        name: row.image
        color: row.raised ? Theme.primaryText : Theme.secondaryText
    }
}
