// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Panel

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
        rows: filter.choice.rows // qmllint disable
        chosenRow: filter.choice.chosenRow
        search: filter.choice.search
        onSearched: text => filter.choice.search = text
        onChosen: row => filter.choice.choose(row)
        onClosed: filter.forceActiveFocus(Qt.TabFocusReason)
    }
}
