// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Controls.Basic as Basic
import QtQuick.Templates as T
import Elmworth.Theme

/// A list of very many to choose from, which can be searched by typing. A click outside closes it, and does no more.
Basic.Popup {
    id: popup

    property string label: ""
    property string prompt: ""
    /// What can be chosen: a model whose rows have a `text` and say whether they are the chosen one by
    /// `isChosen`.
    property var rows: null
    property int chosenRow: -1
    /// What is searched for. Whoever has the rows sets it when `searched` tells, and shows fewer of them.
    property string search: ""

    signal searched(string text)
    signal chosen(int row)

    width: 260
    padding: 5
    margins: 8
    focus: true
    modal: true
    closePolicy: Basic.Popup.CloseOnEscape | Basic.Popup.CloseOnPressOutside
    onAboutToShow: list.active = true
    onOpened: (list.item as SearchList).takeFocus()
    onClosed: searched("")

    // Nothing to see, but it keeps a click from what lies below.
    T.Overlay.modal: Item {}

    // Most are never opened.
    contentItem: Loader { // qmllint disable deferred-property-id
        id: list

        active: false
        sourceComponent: SearchList {
            // The list doesn't outlive its popup.
            // qmllint disable unqualified
            label: popup.label
            prompt: popup.prompt
            rows: popup.rows
            chosenRow: popup.chosenRow
            search: popup.search
            onSearched: text => popup.searched(text)
            // The row is one of those that the search found, which closing takes back.
            onChosen: row => { popup.chosen(row); popup.close(); }
            // qmllint enable unqualified
        }
    }

    background: Rectangle {
        radius: Theme.rowRadius
        color: Theme.cardFill
        border { width: 1; color: Theme.cardBorderStrong }

        SoftShadow {
            corner: Theme.rowRadius
            strength: 0.24
        }
    }
}
