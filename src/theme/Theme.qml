// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

pragma Singleton

import QtQuick

/// The design tokens: near-black or white surfaces with hairline outlines, and colour on accents only.
QtObject {
    id: theme

    readonly property SystemPalette systemPalette: SystemPalette {}
    readonly property bool dark: systemPalette.window.hslLightness < 0.5

    readonly property color backgroundTop: dark ? "#000000" : "#FFFFFF"
    readonly property color backgroundBottom: dark ? "#050507" : "#FAFAFB"
    readonly property color cardFill: dark ? "#0B0B0D" : "#F7F7F9"
    readonly property color cardFillHover: dark ? "#141418" : "#EFEFF2"
    readonly property color cardBorder: dark ? "#1D1D22" : "#E5E5EA"
    readonly property color cardBorderStrong: dark ? "#2A2A31" : "#D4D4DB"
    readonly property color hairline: dark ? "#1A1A1F" : "#EBEBEF"
    readonly property color inverseFill: dark ? "#000000" : "#FFFFFF"
    readonly property color inverseText: dark ? "#FFFFFF" : "#111114"

    readonly property color primaryText: inverseText
    readonly property color secondaryText: dark ? "#9A9AA3" : "#62626B"
    readonly property color focusRing: "#7C6CFF"
    readonly property color accentText: dark ? "#A79BFF" : "#5546D6"

    readonly property string textFamily: "Elmworth Inter"
    readonly property string tabularFamily: "Elmworth Inter Tabular"
    readonly property string iconFamily: "Material Icons"

    readonly property int unit: 4
    readonly property int rowRadius: 10
    readonly property int cardRadius: 14
    readonly property int easing: 120
}
