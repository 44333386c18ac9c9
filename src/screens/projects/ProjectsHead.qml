// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Projects

/// The title of the section, and what decides which projects are listed.
PageHeader {
    id: head

    required property ProjectsModel model

    signal searchLeft()

    function find(): void {
        if (search.visible)
            search.takeFocus();
    }

    title: "Projects"
    subtitle: model.subtitle

    SearchPill {
        id: search

        visible: head.model.offersSearch
        prompt: "Search projects"
        text: head.model.search
        onTextChanged: head.model.search = text
        onEscaped: head.searchLeft()
        onAccepted: head.searchLeft()
        onVisibleChanged: if (!visible && activeFocus) head.searchLeft()
    }

    ToggleSwitch {
        Layout.leftMargin: 8
        Layout.rightMargin: 8
        text: "Show Archived"
        checked: head.model.showsArchived
        onToggled: head.model.showsArchived = checked
    }

    GlowButton {
        text: "Add Project"
        iconName: "plus"
        help: "Ctrl+N"
        prominent: true
        enabled: head.model.canAdd
        onClicked: head.model.add()
    }
}
