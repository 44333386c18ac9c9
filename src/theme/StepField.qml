// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A date or a time to type. Up and Down step the part at the cursor, or the day or the minute while all is selected;
/// Page Up and Page Down make larger steps.
InputField {
    id: field

    required property DateTextField input

    function show(): void {
        if (text !== input.text)
            text = input.text;
    }

    function step(steps: int): void {
        const isWhole = selectionStart === 0 && selectionEnd === length;
        const part = input.step(isWhole ? -1 : cursorPosition, steps);
        select(part.begin, part.end);
    }

    function page(steps: int): void {
        const part = input.page(cursorPosition, steps);
        select(part.begin, part.end);
    }

    /// Makes the next letter typed the first of a new text.
    function takeFocus(): void {
        forceActiveFocus(Qt.TabFocusReason);
        // One that can't be changed doesn't get it.
        if (activeFocus)
            selectAll();
    }

    implicitWidth: 108
    horizontalAlignment: TextInput.AlignLeft
    maximumLength: 64
    invalid: input.problem.length > 0
    font.family: Theme.tabularFamily
    Accessible.description: input.problem

    Component.onCompleted: show()
    onInputChanged: show()
    onTextChanged: {
        if (text === input.text)
            return;
        input.edit(text);
        // Assistive technology types without the focus.
        if (!activeFocus)
            input.finish();
    }
    onEditingFinished: input.finish()
    onActiveFocusChanged: {
        if (!activeFocus) {
            input.finish();
            deselect();
        } else if (focusReason === Qt.TabFocusReason || focusReason === Qt.BacktabFocusReason) {
            selectAll();
        }
    }

    Keys.onPressed: event => {
        if (event.modifiers !== Qt.NoModifier && event.modifiers !== Qt.KeypadModifier)
            return;
        const steps = { [Qt.Key_Up]: 1, [Qt.Key_Down]: -1 }[event.key];
        const pages = { [Qt.Key_PageUp]: 1, [Qt.Key_PageDown]: -1 }[event.key];
        if (steps)
            field.step(steps);
        else if (pages)
            field.page(pages);
        event.accepted = Boolean(steps || pages);
    }

    Connections {
        target: field.input

        function onTextChanged(): void { field.show(); }
    }
}
