// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme
import Elmworth.Gallery

/// The tokens and the texts.
GallerySection {
    title: "Colours and text"

    Flow {
        Layout.fillWidth: true
        spacing: 8

        Repeater {
            model: [Theme.primaryGradient, Theme.violetGradient, Theme.skyGradient, Theme.mintGradient, Theme.coralGradient,
                Theme.amberGradient, Theme.grayGradient, Theme.dangerGradient, Theme.successGradient]

            IconTile {
                required property var modelData

                icon: "check"
                colors: modelData
                size: 40
            }
        }

        Repeater {
            model: [Theme.backgroundTop, Theme.backgroundBottom, Theme.cardFill, Theme.cardFillHover, Theme.panelFill,
                Theme.cardBorder, Theme.cardBorderStrong, Theme.hairline, Theme.inverseFill, Theme.inverseText]

            Rectangle {
                required property color modelData

                width: 40
                height: 40
                radius: 11
                color: modelData
                border { width: 1; color: Theme.cardBorderStrong }
            }
        }
    }

    RowLayout {
        spacing: 24

        PlainText { text: "Primary text" }
        PlainText { text: "Secondary text"; color: Theme.secondaryText }
        PlainText { text: "Tertiary text"; color: Theme.tertiaryText }
        PlainText { text: "Accent"; color: Theme.accentText }
        PlainText { text: "Warning"; color: Theme.warningText }
        PlainText { text: "Danger"; color: Theme.dangerText }
        PlainText { text: "Success"; color: Theme.successText }
        PlainText { text: "1:11:11 0:00:00"; font.family: Theme.tabularFamily }
    }

    RowLayout {
        spacing: 12

        AppMark { size: 16 }
        AppMark { size: 24 }
        AppMark { size: 40 }
        AppMark { size: 64 }

        Repeater {
            model: ["Acme Co", "Globex", "Initech", "日本 株式会社", "(möbel) haus", "🎉", "", "ßtraße 9"]

            InitialTile {
                required property string modelData

                text: modelData
                colors: Theme.tileGradient(modelData)
                size: 36
            }
        }

        IconBadge { icon: "record"; tint: "#7C6CFF"; size: 38 }
        IconBadge { icon: "folder-filled" }
        PulsingDot { tint: "#FF5B87" }
        PulsingDot { tint: "#FF5B87"; dimmed: true }
    }
}
