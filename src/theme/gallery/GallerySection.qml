// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// A part of the gallery.
ColumnLayout {
    id: section

    property string title: ""
    default property alias content: body.data

    spacing: 12

    SectionLabel {
        Layout.fillWidth: true
        title: section.title.toUpperCase()
    }

    ColumnLayout {
        id: body

        Layout.fillWidth: true
        spacing: 16
    }
}
