// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// A section that is yet to come.
Item {
    id: section

    property string title: ""
    property string icon: ""
    property var colors: Theme.primaryGradient
    property string message: ""

    ColumnLayout {
        anchors { fill: parent; margins: 24 }

        PageHeader {
            Layout.fillWidth: true
            title: section.title
        }

        Item {
            Layout.fillWidth: true
            Layout.fillHeight: true

            EmptyHero {
                anchors { left: parent.left; right: parent.right; verticalCenter: parent.verticalCenter; verticalCenterOffset: -24 }
                icon: section.icon
                colors: section.colors
                title: "Coming soon"
                message: section.message
            }
        }
    }
}
