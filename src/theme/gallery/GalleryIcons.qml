// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Gallery

/// All icons with their names.
GallerySection {
    id: section

    property var names: []

    title: "Icons"

    GridLayout {
        Layout.fillWidth: true
        columns: 5
        columnSpacing: 16
        rowSpacing: 8

        Repeater {
            model: section.names

            RowLayout {
                id: row

                required property string modelData

                Layout.fillWidth: true
                Layout.preferredWidth: 1
                spacing: 8

                Icon { name: row.modelData; size: 20 }
                PlainText {
                    Layout.fillWidth: true
                    text: row.modelData
                    size: Theme.captionSize
                    color: Theme.secondaryText
                }
            }
        }
    }
}
