// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// Says something that wants an answer before anything goes on. Return presses the button on the right, Escape
/// does what the left one does.
SheetPopup {
    id: sheet

    property string icon: ""
    property var colors: Theme.primaryGradient
    property string title: ""
    property string message: ""
    property string acceptText: "OK"
    /// Empty for a message that can only be read.
    property string rejectText: "Cancel"
    property bool destructive: false

    signal accepted()
    signal rejected()

    property bool isAnswered: false

    function answer(accepts: bool): void {
        isAnswered = true;
        close();
        if (accepts)
            accepted();
        else
            rejected();
    }

    onAboutToShow: { isAnswered = false; acceptButton.forceActiveFocus(Qt.TabFocusReason); }
    onClosed: if (!isAnswered) rejected()

    // qmllint disable deferred-property-id
    contentItem: SheetScaffold {
        sheetWidth: 400
        icon: sheet.icon
        colors: sheet.colors
        title: sheet.title
        Accessible.role: Accessible.Dialog
        Accessible.name: sheet.title
        Accessible.description: sheet.message
        actions: [
            GlowButton {
                visible: sheet.rejectText.length > 0
                text: sheet.rejectText
                onClicked: sheet.answer(false)
            },
            GlowButton {
                id: acceptButton

                text: sheet.acceptText
                prominent: true
                colors: sheet.destructive ? Theme.dangerGradient : []
                onClicked: sheet.answer(true)
            }
        ]

        PlainText {
            Layout.fillWidth: true
            visible: text.length > 0
            text: sheet.message
            color: Theme.secondaryText
            lineHeight: 1.25
            wrapMode: Text.Wrap
            elide: Text.ElideNone
        }
    }    // qmllint enable deferred-property-id
}
