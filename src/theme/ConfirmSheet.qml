// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// Shows a question while it is open. Return presses the button on the right, Escape does what the left one does.
SheetPopup {
    id: sheet

    required property Confirmation question

    visible: question.isOpen
    onAboutToShow: acceptButton.forceActiveFocus(Qt.TabFocusReason)
    onAboutToHide: question.reject()

    // qmllint disable deferred-property-id
    contentItem: SheetScaffold {
        sheetWidth: 400
        icon: sheet.question.icon
        colors: sheet.question.isDestructive ? Theme.dangerGradient : Theme.grayGradient
        title: sheet.question.title
        Accessible.role: Accessible.Dialog
        Accessible.name: sheet.question.title
        Accessible.description: sheet.question.message
        actions: [
            GlowButton {
                visible: sheet.question.rejectText.length > 0
                text: sheet.question.rejectText
                onClicked: sheet.question.reject()
            },
            GlowButton {
                id: acceptButton

                text: sheet.question.acceptText
                prominent: true
                colors: sheet.question.isDestructive ? Theme.dangerGradient : []
                onClicked: sheet.question.accept()
            }
        ]

        PlainText {
            Layout.fillWidth: true
            visible: text.length > 0
            text: sheet.question.message
            color: Theme.secondaryText
            lineHeight: 1.25
            wrapMode: Text.Wrap
            elide: Text.ElideNone
        }
    }    // qmllint enable deferred-property-id
}
