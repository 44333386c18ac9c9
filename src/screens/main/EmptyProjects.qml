// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// What a new user sees: how to come by a first project.
ColumnLayout {
    id: empty

    spacing: 0

    EmptyHero {
        Layout.fillWidth: true
        icon: "clock.fill"
        title: "No projects yet"
        message: "Add a client and a project, then start tracking with one click."
    }

    Rectangle {
        Layout.alignment: Qt.AlignHCenter
        Layout.maximumWidth: 480
        Layout.fillWidth: true
        implicitHeight: commands.implicitHeight + 24
        radius: Theme.rowRadius
        color: Theme.cardFill
        border { width: 1; color: Theme.cardBorder }

        TextEdit {
            id: commands

            anchors { fill: parent; margins: 12 }
            readOnly: true
            selectByMouse: true
            activeFocusOnTab: true
            // A focused text keeps the keys from the window's shortcuts.
            Keys.onPressed: event => { if (event.matches(StandardKey.Quit)) Qt.quit(); }
            wrapMode: TextEdit.Wrap
            textFormat: TextEdit.PlainText
            text: "elmworth client add \"Acme Co\" --rate 120\nelmworth project add Website --client \"Acme Co\""
            color: Theme.primaryText
            selectionColor: Theme.selectionFill
            selectedTextColor: Theme.primaryText
            font { family: "monospace"; pixelSize: 12 }
            Accessible.role: Accessible.EditableText
            Accessible.name: "Commands that add a client and a project"
        }

        FocusRing {
            shows: commands.activeFocus
        }
    }
}
