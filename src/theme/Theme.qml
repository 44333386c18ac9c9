// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

pragma Singleton

import QtQuick
import Elmworth.Theme

/// The design tokens: near-black or white surfaces with hairline outlines, and colour on accents only.
QtObject {
    id: theme

    readonly property bool dark: AppAppearance.dark

    readonly property color accentViolet: Qt.rgba(0.49, 0.42, 1.0, 1)
    readonly property color accentBlue: Qt.rgba(0.29, 0.66, 1.0, 1)
    readonly property color accentSky: Qt.rgba(0.2, 0.75, 0.95, 1)

    readonly property var primaryGradient: [accentViolet, accentBlue]
    readonly property var violetGradient: [accentViolet, Qt.rgba(0.75, 0.42, 1.0, 1)]
    readonly property var skyGradient: [accentSky, accentBlue]
    readonly property var mintGradient: [Qt.rgba(0.25, 0.82, 0.62, 1), Qt.rgba(0.16, 0.62, 0.8, 1)]
    readonly property var coralGradient: [Qt.rgba(1.0, 0.6, 0.36, 1), Qt.rgba(1.0, 0.36, 0.53, 1)]
    readonly property var amberGradient: [Qt.rgba(0.98, 0.72, 0.3, 1), Qt.rgba(0.98, 0.55, 0.3, 1)]
    readonly property var grayGradient: [Qt.rgba(0.55, 0.55, 0.55, 1), Qt.rgba(0.38, 0.38, 0.38, 1)]
    readonly property var dangerGradient: [Qt.rgba(0.84, 0.23, 0.32, 1)]
    readonly property var successGradient: [Qt.rgba(0.07, 0.5, 0.36, 1)]
    readonly property var tilePalette: [violetGradient, primaryGradient, skyGradient, mintGradient, coralGradient, amberGradient]

    readonly property color backgroundTop: dark ? "#000000" : "#FFFFFF"
    readonly property color backgroundBottom: dark ? "#050507" : "#FAFAFB"
    readonly property color cardFill: dark ? "#0B0B0D" : "#F7F7F9"
    readonly property color cardFillHover: dark ? "#141418" : "#EFEFF2"
    readonly property color panelFill: dark ? "#050506" : "#FAFAFB"
    readonly property color cardBorder: dark ? "#1D1D22" : "#E5E5EA"
    readonly property color cardBorderStrong: dark ? "#2A2A31" : "#D4D4DB"
    readonly property color hairline: dark ? "#1A1A1F" : "#EBEBEF"
    readonly property color inverseFill: dark ? "#000000" : "#FFFFFF"
    readonly property color inverseText: dark ? "#FFFFFF" : "#111114"

    readonly property color primaryText: inverseText
    readonly property color secondaryText: Qt.alpha(inverseText, dark ? 0.62 : 0.66)
    readonly property color tertiaryText: Qt.alpha(inverseText, dark ? 0.54 : 0.6)
    readonly property color warningText: Tint.legible(amberGradient[0], cardBorder, backgroundTop)
    readonly property color dangerText: Tint.legible(coralGradient[1], cardBorder, backgroundTop)
    readonly property color successText: Tint.legible(mintGradient[0], cardBorder, backgroundTop)
    readonly property color accentText: Tint.legible(accentViolet, cardBorder, backgroundTop)
    readonly property color focusRing: accentViolet
    readonly property color selectionFill: Qt.alpha(accentViolet, dark ? 0.42 : 0.28)
    readonly property color sheetVeil: Qt.alpha("#000000", dark ? 0.6 : 0.32)

    readonly property string textFamily: "Elmworth Inter"
    readonly property string tabularFamily: "Elmworth Inter Tabular"
    readonly property string iconFamily: "Elmworth Icons"
    readonly property int bodySize: 13
    readonly property int calloutSize: 12
    readonly property int captionSize: 11

    readonly property int unit: 4
    readonly property int fieldRadius: 8
    readonly property int rowRadius: 10
    readonly property int cardRadius: 14
    readonly property int sheetRadius: 16
    readonly property int easing: AppAppearance.reducedMotion ? 0 : 120

    /// The gradient of the tile that stands for a name, the same in every run.
    function tileGradient(name: string): var {
        return tilePalette[Tint.nameHash(name) % tilePalette.length];
    }
}
