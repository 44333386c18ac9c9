// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Timesheet

/// A filter by one record of many.
FilterButton {
    id: filter

    required property ChoiceModel choice
    property string name: ""

    text: choice.title
    label: name + ": " + choice.title
    active: choice.isSet
    onClicked: popup.open()

    ChoicePopup {
        id: popup

        y: filter.height + 4
        label: filter.name
        rows: filter.choice.rows
        searchShown: filter.choice.isSearchShown
        search: filter.choice.search
        onSearchEdited: text => filter.choice.search = text
        onChosen: row => filter.choice.choose(row)
    }
}
