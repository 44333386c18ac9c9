// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Settings

/// A setting that is a line of text, or several where there may be more than one.
SettingsRow {
    id: row

    required property FormText field
    property string prompt: ""
    /// How many lines the text has room for before it scrolls; 1 for a text without line breaks.
    property int mostLines: 1
    readonly property bool isLong: mostLines > 1

    /// Somebody is done with typing.
    signal finished()

    InputField {
        id: input

        Layout.fillWidth: true
        visible: !row.isLong
        label: row.label
        placeholderText: row.prompt
        invalid: row.problem.length > 0
        Accessible.description: row.problem
        onEditingFinished: row.finished()
        // Assistive technology types without the focus.
        onTextEdited: if (!activeFocus) row.finished()
    }

    ScrollingArea {
        id: lines

        readonly property real lineHeight: metrics.height
        readonly property real frame: area.topPadding + area.bottomPadding

        Layout.fillWidth: true
        Layout.preferredHeight: Math.ceil(frame + Math.max(2 * lineHeight,
            Math.min(row.mostLines * lineHeight, area.contentHeight)))
        visible: row.isLong
        label: row.label
        placeholderText: row.prompt

        FontMetrics {
            id: metrics

            font: lines.area.font
        }
    }

    FormTextLink {
        field: row.field
        input: row.isLong ? lines.area : input
    }
}
