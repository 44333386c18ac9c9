// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Panel

/// The sheet in which an entry is added or changed. It shows itself while its model is open. Return saves wherever
/// the focus is, in the notes Ctrl+Return; Escape cancels. What can only be read has nothing to save.
SheetPopup {
    id: editor

    required property EntryEditorModel model

    width: Math.min(implicitWidth, parent.width - 2 * margins)
    height: Math.min(implicitHeight, parent.height - 2 * margins)
    onAboutToHide: model.dismiss()
    onAboutToShow: form.takeFocus()
    Component.onCompleted: if (model.isOpen) open()

    Connections {
        target: editor.model

        function onIsOpenChanged(): void { editor.model.isOpen ? editor.open() : editor.close(); }
    }

    SheetScaffold {
        anchors.fill: parent
        icon: editor.model.icon
        colors: editor.model.isBilled ? Theme.amberGradient : [Tint.fromHex(editor.model.iconColor)]
        title: editor.model.title
        subtitle: editor.model.subtitle
        sheetWidth: 520
        Accessible.role: Accessible.Dialog
        Accessible.name: editor.model.title

        Keys.onReturnPressed: editor.model.save()
        Keys.onEnterPressed: editor.model.save()

        EntryEditorForm {
            id: form

            Layout.fillWidth: true
            Layout.fillHeight: true
            model: editor.model
            closing: cancel
        }

        EntryEditorMessages {
            Layout.fillWidth: true
            model: editor.model
        }

        actions: [
            GlowButton {
                id: cancel

                text: editor.model.cancelText
                takesReturn: editor.model.isBilled
                onClicked: editor.model.dismiss()
            },
            GlowButton {
                visible: !editor.model.isBilled
                text: "Save"
                prominent: true
                enabled: editor.model.canSave
                onClicked: editor.model.save()
            }
        ]
    }
}
