// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// Rows of settings on one card, with a heading if they have one.
ColumnLayout {
    id: group

    property string title: ""
    default property alias rows: column.data

    Layout.fillWidth: true
    spacing: 6

    SectionLabel {
        Layout.leftMargin: 14
        visible: group.title.length > 0
        title: group.title
        Accessible.name: group.title
    }

    GlassCard {
        Layout.fillWidth: true
        padding: 0

        ColumnLayout {
            id: column

            anchors.fill: parent
            spacing: 0
        }
    }
}
