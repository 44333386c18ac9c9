// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic as Basic
import Elmworth.Theme
import Elmworth.Gallery

/// Every component in every state, to judge the look by.
Basic.ApplicationWindow {
    id: window

    required property GalleryModel model

    title: "Elmworth Gallery"
    width: 1440
    height: Screen.desktopAvailableHeight
    minimumWidth: 1440
    minimumHeight: 600
    visible: true
    background: AppBackground {}

    ScrollPage {
        anchors.fill: parent
        margin: 32
        spacing: 28

        PageHeader {
            Layout.fillWidth: true
            title: "Gallery"
            subtitle: "Every component in every state"

            SegmentedPicker {
                label: "Appearance"
                options: ["System", "Dark", "Light"]
                currentIndex: window.model.appearance
                onChosen: index => window.model.appearance = index
            }
        }

        GalleryColors { Layout.fillWidth: true }
        GalleryButtons { Layout.fillWidth: true }
        GalleryFields {
            Layout.fillWidth: true
            model: window.model
        }
        GalleryDates {
            Layout.fillWidth: true
            model: window.model
        }
        GalleryCards { Layout.fillWidth: true }
        GalleryLists {
            Layout.fillWidth: true
            model: window.model
        }
        GalleryIcons {
            Layout.fillWidth: true
            names: window.model.imageNames
        }
    }
}
