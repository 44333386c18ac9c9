// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Projects

/// What stands in the place of the list while it is empty.
Item {
    id: place

    required property ProjectsModel model

    readonly property bool hasKeyboard: next.activeFocus || archived.activeFocus

    function takeKeyboard(): void {
        const button = hero.visible ? next : archived;
        if (button.visible)
            button.forceActiveFocus(Qt.TabFocusReason);
    }

    EmptyHero {
        id: hero

        // Where those of the other sections stand, in the middle of the window.
        anchors { centerIn: parent; verticalCenterOffset: -place.y / 2 }
        width: Math.min(parent.width, 460)
        visible: place.model.needsClient || place.model.needsProject
        icon: "folder-filled"
        title: place.model.needsClient ? "Add a client first" : "No projects yet"
        message: place.model.needsClient ? "Every project belongs to a client, which sets its default rate and currency."
                                   : place.model.emptyMessage

        GlowButton {
            id: next

            text: place.model.needsClient ? "Go to Clients" : "Add a Project"
            prominent: true
            colors: Theme.primaryGradient
            onClicked: place.model.needsClient ? place.model.goToClients() : place.model.add()
        }
    }

    ColumnLayout {
        anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter; margins: 24 }
        visible: place.model.hasNoMatches
        spacing: 10

        PlainText {
            Layout.fillWidth: true
            horizontalAlignment: Text.AlignHCenter
            text: place.model.noMatchesText
            color: Theme.secondaryText
            wrapMode: Text.Wrap
        }

        LinkButton {
            id: archived

            Layout.alignment: Qt.AlignHCenter
            visible: place.model.hidesArchived
            text: "Show Archived Projects"
            onClicked: place.model.showsArchived = true
        }
    }
}
