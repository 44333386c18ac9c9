// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Welcome

/// Greets a new user. Return goes on, the arrows turn the pages, and Escape leaves.
SheetPopup {
    id: sheet

    required property WelcomeModel model

    readonly property var colors: [Theme.primaryGradient, Theme.violetGradient, Theme.mintGradient][model.page]

    visible: model.isOpen
    onAboutToShow: next.forceActiveFocus(Qt.TabFocusReason)
    onAboutToHide: model.dismiss()

    // qmllint disable deferred-property-id
    contentItem: Rectangle {
        implicitWidth: 520
        implicitHeight: column.implicitHeight
        radius: Theme.sheetRadius
        color: Theme.panelFill
        border { width: 1; color: Theme.cardBorderStrong }
        Accessible.role: Accessible.Dialog
        Accessible.name: "Welcome to Elmworth"
        Accessible.description: sheet.model.title + sheet.model.accent + ". " + sheet.model.text

        Keys.onLeftPressed: if (sheet.model.page > 0) sheet.model.back()
        Keys.onRightPressed: if (sheet.model.page < sheet.model.pageCount - 1) sheet.model.next()

        ColumnLayout {
            id: column

            anchors { left: parent.left; right: parent.right }
            spacing: 0

            WelcomeArt {
                Layout.fillWidth: true
                Layout.margins: 10
                Layout.bottomMargin: 0
                icon: sheet.model.icon
                colors: sheet.colors
            }

            PlainText {
                Layout.alignment: Qt.AlignHCenter
                Layout.topMargin: 24
                text: sheet.model.kicker
                size: Theme.captionSize
                color: Theme.secondaryText
                font { weight: Font.DemiBold; letterSpacing: 1.6 }
            }

            // One text to a reader, two colours to the eye.
            Row {
                Layout.alignment: Qt.AlignHCenter
                Layout.topMargin: 8
                Accessible.role: Accessible.Heading
                Accessible.name: sheet.model.title + sheet.model.accent

                PlainText {
                    text: sheet.model.title
                    size: 28
                    font.weight: Font.Medium
                    Accessible.ignored: true
                }

                PlainText {
                    text: sheet.model.accent
                    size: 28
                    color: Tint.legible(sheet.colors[0], Theme.panelFill, Theme.panelFill)
                    font.weight: Font.Medium
                    Accessible.ignored: true
                }
            }

            PlainText {
                Layout.alignment: Qt.AlignHCenter
                Layout.preferredWidth: 380
                Layout.preferredHeight: 44
                Layout.topMargin: 10
                horizontalAlignment: Text.AlignHCenter
                text: sheet.model.text
                color: Theme.secondaryText
                lineHeight: 1.3
                wrapMode: Text.Wrap
            }

            Row {
                Layout.alignment: Qt.AlignHCenter
                Layout.topMargin: 20
                spacing: 6
                Accessible.role: Accessible.Indicator
                Accessible.name: "Page " + (sheet.model.page + 1) + " of " + sheet.model.pageCount

                Repeater {
                    model: sheet.model.pageCount

                    // The dots don't outlive their sheet.
                    // qmllint disable unqualified
                    Rectangle {
                        required property int index
                        readonly property bool isCurrent: index === sheet.model.page

                        width: isCurrent ? 22 : 7
                        height: 7
                        radius: 3.5
                        color: isCurrent ? Theme.primaryText : Theme.cardBorderStrong

                        Behavior on width { NumberAnimation { duration: Theme.easing; easing.type: Easing.OutQuad } }
                    }
                    // qmllint enable unqualified
                }
            }

            RowLayout {
                Layout.fillWidth: true
                Layout.margins: 22
                spacing: 10

                GlowButton {
                    text: sheet.model.backText
                    onClicked: sheet.model.back()
                }

                Item { Layout.fillWidth: true }

                GlowButton {
                    id: next

                    text: sheet.model.nextText
                    prominent: true
                    onClicked: sheet.model.next()
                }
            }
        }
    }
    // qmllint enable deferred-property-id
}
