// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Invoices

/// The number of an invoice, which a draft can change in place, and its status.
RowLayout {
    id: head

    required property InvoiceDetailModel model

    /// The renaming has ended by the keyboard.
    signal renamed()

    spacing: 12

    ColumnLayout {
        Layout.fillWidth: true
        Layout.alignment: Qt.AlignTop
        spacing: 4

        PlainText {
            Layout.fillWidth: true
            visible: !head.model.isRenaming
            text: head.model.facts.number
            size: 24
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading

            TapHandler {
                enabled: head.model.facts.isDraft
                onDoubleTapped: head.model.beginRenaming()
            }
        }

        InputField {
            id: field

            function refresh(): void {
                if (text !== head.model.numberDraft)
                    text = head.model.numberDraft;
            }

            Layout.fillWidth: true
            visible: head.model.isRenaming
            implicitHeight: 40
            label: "Number"
            font.pixelSize: 24
            font.weight: Font.DemiBold
            maximumLength: 200
            Accessible.description: help.text
            onVisibleChanged: if (visible) {
                refresh();
                forceActiveFocus(Qt.OtherFocusReason);
                selectAll();
            }
            onTextChanged: head.model.numberDraft = text
            onAccepted: {
                head.model.commitNumber();
                if (head.model.isRenaming)
                    selectAll();
                else
                    head.renamed();
            }
            onActiveFocusChanged: if (!activeFocus) head.model.endRenaming()
            Keys.onEscapePressed: {
                head.model.endRenaming();
                head.renamed();
            }

            Connections {
                target: head.model

                function onNumberDraftChanged(): void { field.refresh(); }
            }
        }

        PlainText {
            id: help

            Layout.fillWidth: true
            visible: head.model.isRenaming
            text: "Drafts can be renumbered — press Return to apply"
            size: Theme.calloutSize
            color: Theme.accentText
        }

        PlainText {
            Layout.fillWidth: true
            text: head.model.facts.subtitle
            wrapMode: Text.Wrap
            maximumLineCount: 3
            color: Theme.secondaryText
        }
    }

    GlowButton {
        id: mark

        Layout.alignment: Qt.AlignTop
        text: "Mark as…"
        iconName: "check-circle"
        onClicked: (menu.make() as PopupMenu).popup(mark, 0, mark.height + 4)
    }

    OnDemand {
        id: menu

        // Not a place in the row.
        visible: false

        // What is made on demand doesn't outlive its title.
        // qmllint disable unqualified
        sourceComponent: PopupMenu {
            id: statuses

            parent: mark

            Repeater {
                model: head.model.statusNames

                PopupMenuItem {
                    required property int index
                    required property string modelData

                    text: modelData
                    checkable: true
                    chosen: index === head.model.facts.status
                    onTriggered: head.model.setStatus(index)
                }
            }
        }
        // qmllint enable unqualified
    }
}
