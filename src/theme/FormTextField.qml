// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// A line of a form to type a text into, and under it what is wrong with what was typed.
ColumnLayout {
    id: line

    required property FormText field
    property string label: ""
    property string prompt: ""
    /// A sentence; empty while there is nothing wrong.
    property string problem: ""
    readonly property alias input: entry

    /// Makes what is typed next take the place of the text.
    function takeFocus(): void {
        entry.forceActiveFocus(Qt.TabFocusReason);
        entry.selectAll();
    }

    spacing: 4

    InputField {
        id: entry

        Layout.fillWidth: true
        label: line.label
        placeholderText: line.prompt
        invalid: line.problem.length > 0
        Accessible.description: line.problem
        // What is typed after Tab takes the place of the text.
        onActiveFocusChanged: {
            if (activeFocus && (focusReason === Qt.TabFocusReason || focusReason === Qt.BacktabFocusReason))
                selectAll();
        }

        FormTextLink {
            field: line.field
            input: entry
        }
    }

    PlainText {
        Layout.fillWidth: true
        visible: text.length > 0
        text: line.problem
        size: Theme.calloutSize
        color: Theme.dangerText
        wrapMode: Text.Wrap
    }
}
