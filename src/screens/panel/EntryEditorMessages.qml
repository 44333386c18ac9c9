// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Panel

/// What the entry editor has to say under its form.
ColumnLayout {
    id: messages

    required property EntryEditorModel model

    spacing: 6

    RowLayout {
        Layout.fillWidth: true
        visible: messages.model.isBilled
        spacing: 8

        Icon {
            name: "lock.fill"
            color: Theme.secondaryText
        }

        PlainText {
            Layout.fillWidth: true
            text: messages.model.billedText
            color: Theme.secondaryText
            wrapMode: Text.Wrap
        }
    }

    PlainText {
        Layout.fillWidth: true
        visible: text.length > 0
        text: messages.model.notice
        color: Theme.warningText
        wrapMode: Text.Wrap
    }

    // Its line stays free, so that the sheet keeps its size while somebody types.
    PlainText {
        Layout.fillWidth: true
        visible: !messages.model.isBilled
        text: messages.model.problem
        color: Theme.dangerText
        wrapMode: Text.Wrap
        Accessible.ignored: text.length === 0
    }
}
