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
    required property ChoiceModel choice

    width: 260
    padding: 5
    margins: 8
    focus: true
    modal: true
    closePolicy: Basic.Popup.CloseOnEscape | Basic.Popup.CloseOnPressOutside
    onAboutToShow: list.active = true
    onOpened: (list.item as SearchList).takeFocus()
    onClosed: choice.search = ""

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
            choice: popup.choice
            onChosen: popup.close()
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
