// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Gallery

/// Fields, choices, menus and tool tips.
GallerySection {
    id: section

    required property GalleryModel model

    title: "Fields, choices and menus"

    RowLayout {
        spacing: 16

        InputField { label: "Name"; placeholderText: "What are you working on?" }
        InputField { label: "Name"; text: "Acme Co"; looksFocused: true }
        InputField { label: "Rate"; text: "12o"; invalid: true }
        InputField { label: "Name"; text: "Disabled"; enabled: false }
        InputField { label: "Notes"; placeholderText: "Plain"; plain: true }
    }

    RowLayout {
        spacing: 16

        SearchPill { prompt: "Search clients" }
        SearchPill { prompt: "Search clients"; text: "Acme" }
        SearchPill { prompt: "Search clients"; looksFocused: true }
        PopupPicker { label: "Client"; model: ["Acme Co", "Globex", "Initech"] }
        PopupPicker { label: "Client"; model: ["Acme Co"]; currentIndex: -1; placeholder: "Choose…"; looksFocused: true }
    }

    RowLayout {
        spacing: 16

        InputArea { label: "Address"; text: "100 Market Street\nSan Francisco"; implicitWidth: 240 }

        ColumnLayout {
            spacing: 8

            ProgressTrack { label: "Budget"; fraction: 0.45; implicitWidth: 240 }
            ProgressTrack { label: "Budget"; fraction: 0.9; colors: Theme.amberGradient; implicitWidth: 240 }
            ProgressTrack { label: "Budget"; fraction: 1.4; colors: Theme.coralGradient; implicitWidth: 240 }
            ProgressTrack { label: "Goal"; fraction: 0; smallest: 6; implicitHeight: 6; implicitWidth: 240 }
        }

        GlowButton {
            text: "Open Menu"
            iconName: "menu"
            help: "Shows the menu"
            onClicked: menu.popup(this, 0, height + 4)

            PopupMenu {
                id: menu

                PopupMenuItem { text: "Edit…"; iconName: "pencil"; hint: "Ctrl+E" }
                PopupMenuItem { text: "Archive"; enabled: false }
                PopupMenu {
                    title: "Move to Project"

                    PopupMenuItem { text: "Website"; checkable: true; chosen: true }
                    PopupMenuItem { text: "App"; checkable: true }
                }
                PopupMenuSeparator {}
                PopupMenuItem { text: "Delete…"; iconName: "trash"; destructive: true }
            }
        }

        GlowButton {
            text: "Open Sheet"
            onClicked: section.model.form.open()

            GalleryFormSheet { model: section.model.form }
        }

        GlowButton {
            text: "Ask"
            onClicked: section.model.ask()

            ConfirmSheet { question: section.model.confirmation }
        }
    }
}
