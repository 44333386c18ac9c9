// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A filter by one record of many.
FilterButton {
    id: filter

    required property ChoiceModel choice
    property string name: ""
    property string prompt: ""

    text: choice.title
    label: name + ": " + choice.title
    active: choice.isSet
    onClicked: popup.open()

    ChoicePopup {
        id: popup

        y: filter.height + 4
        label: filter.name
        prompt: filter.prompt
        choice: filter.choice
        onClosed: filter.forceActiveFocus(Qt.TabFocusReason)
    }
}
