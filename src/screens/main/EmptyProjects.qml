// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// What a new user sees: how to come by a first project.
ColumnLayout {
    id: empty

    spacing: 10

    PlainText {
        Layout.fillWidth: true
        Layout.topMargin: 32
        horizontalAlignment: Text.AlignHCenter
        text: "No projects yet"
        wrapMode: Text.Wrap
        size: 22
        font.weight: Font.Medium
    }

    PlainText {
        Layout.fillWidth: true
        horizontalAlignment: Text.AlignHCenter
        text: "Add a client and a project, then start tracking with one click."
        wrapMode: Text.Wrap
        color: Theme.secondaryText
    }

    Rectangle {
        Layout.fillWidth: true
        Layout.topMargin: 8
        implicitHeight: commands.implicitHeight + 24
        radius: Theme.rowRadius
        color: Theme.cardFill
        border.width: 1
        border.color: commands.activeFocus ? Theme.focusRing : Theme.cardBorder

        TextEdit {
            id: commands

            anchors { fill: parent; margins: 12 }
            readOnly: true
            selectByMouse: true
            activeFocusOnTab: true
            // A focused text keeps the keys from the window's shortcuts.
            Keys.onPressed: event => { if (event.matches(StandardKey.Quit)) Qt.quit(); }
            wrapMode: TextEdit.Wrap
            text: "elmworth client add \"Acme Co\" --rate 120\nelmworth project add Website --client \"Acme Co\""
            color: Theme.primaryText
            selectionColor: Theme.focusRing
            font.family: "monospace"
            font.pixelSize: 12
            Accessible.role: Accessible.EditableText
            Accessible.name: "Commands that add a client and a project"
        }
    }
}
