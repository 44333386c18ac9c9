// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Gallery

/// A list and a grid that can be reached by keyboard.
GallerySection {
    id: section

    required property GalleryModel model

    title: "Lists"

    Component {
        id: card

        HoverCard {
            id: example

            required property int index
            required property string text
            readonly property var view: GridView.view ?? ListView.view

            width: view ? (view.cellWidth ? view.cellWidth - view.spacing : view.width) : 0
            height: 56
            selected: section.model.selection.currentRow === index // qmllint disable unqualified
            Accessible.role: Accessible.ListItem
            Accessible.name: text

            PlainText {
                anchors.centerIn: parent
                text: example.text
                Accessible.ignored: true
            }

            TapHandler { onTapped: example.view.click(example.index, Qt.NoModifier) }
        }
    }

    // The cards don't outlive their views.
    // qmllint disable
    RowLayout {
        spacing: 24

        KeyedList {
            Layout.preferredWidth: 300
            Layout.preferredHeight: 200
            clip: true
            label: "List"
            rowHeight: 62
            spacing: 6
            selection: section.model.selection
            model: section.model.rows
            delegate: card
        }

        KeyedGrid {
            Layout.fillWidth: true
            Layout.preferredHeight: 200
            clip: true
            label: "Grid"
            cardHeight: 56
            selection: section.model.selection
            model: section.model.rows
            delegate: card
        }
    }
    // qmllint enable
}
