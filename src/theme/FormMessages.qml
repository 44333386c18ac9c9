// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// What a form has to say under its fields.
ColumnLayout {
    id: messages

    required property FormSheetModel form
    /// Whether the line for a problem stays free, so that the sheet keeps its size while somebody types.
    property bool keepsLine: true

    visible: keepsLine || form.isLocked || form.notice.length > 0 || form.problem.length > 0
    spacing: 6

    RowLayout {
        Layout.fillWidth: true
        visible: messages.form.isLocked
        spacing: 8

        Icon {
            name: "lock"
            color: Theme.secondaryText
        }

        PlainText {
            Layout.fillWidth: true
            text: messages.form.lockText
            color: Theme.secondaryText
            wrapMode: Text.Wrap
        }
    }

    PlainText {
        Layout.fillWidth: true
        visible: text.length > 0
        text: messages.form.notice
        color: Theme.warningText
        wrapMode: Text.Wrap
    }

    PlainText {
        Layout.fillWidth: true
        visible: !messages.form.isLocked && (messages.keepsLine || text.length > 0)
        text: messages.form.problem
        color: Theme.dangerText
        wrapMode: Text.Wrap
        Accessible.ignored: text.length === 0
    }
}
