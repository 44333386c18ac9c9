// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// A sheet with a form, which shows itself while its model is open. Its children stand in a column, and under them
/// what the model has to say. Return saves wherever the focus is, Escape cancels. What is locked can only be read, and
/// has nothing to save.
SheetPopup {
    id: sheet

    required property FormSheetModel form
    property string icon: ""
    property var colors: Theme.primaryGradient
    property real sheetWidth: 480
    /// What saving is called here.
    property string saveText: "Save"
    /// Whether room stays free for what the model has to say.
    property bool keepsMessageLine: true
    default property alias content: fields.data

    /// The sheet is about to show, and the focus is to go to the field that is filled first.
    signal entered()

    width: Math.min(implicitWidth, parent.width - 2 * margins)
    height: Math.min(implicitHeight, parent.height - 2 * margins)
    onAboutToHide: form.dismiss()
    onAboutToShow: {
        entered();
        if (form.isLocked)
            cancel.forceActiveFocus(Qt.TabFocusReason);
    }
    Component.onCompleted: if (form.isOpen) open()

    Connections {
        target: sheet.form

        function onIsOpenChanged(): void { sheet.form.isOpen ? sheet.open() : sheet.close(); }
    }

    contentItem: SheetScaffold { // qmllint disable deferred-property-id
        icon: sheet.icon
        colors: sheet.colors
        title: sheet.form.title
        subtitle: sheet.form.subtitle
        sheetWidth: sheet.sheetWidth
        Accessible.role: Accessible.Dialog
        Accessible.name: sheet.form.title

        Keys.onReturnPressed: sheet.form.save()
        Keys.onEnterPressed: sheet.form.save()

        ColumnLayout {
            id: fields

            Layout.fillWidth: true
            Layout.fillHeight: true
            spacing: 12
        }

        FormMessages {
            Layout.fillWidth: true
            form: sheet.form
            keepsLine: sheet.keepsMessageLine
        }

        actions: [
            GlowButton {
                id: cancel

                text: sheet.form.isLocked ? "Close" : "Cancel"
                takesReturn: sheet.form.isLocked
                onClicked: sheet.form.dismiss()
            },
            GlowButton {
                visible: !sheet.form.isLocked
                text: sheet.saveText
                prominent: true
                enabled: sheet.form.canSave
                onClicked: sheet.form.save()
            }
        ]
    }
}
