// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick

/// The application's icon.
Image {
    property real size: 28

    readonly property int pixels: Math.ceil(size * Screen.devicePixelRatio)

    width: size
    height: size
    sourceSize { width: pixels; height: pixels }
    source: pixels > 64 ? "qrc:/elmworth/icons/AppIcon-256.png" : "qrc:/elmworth/icons/AppIcon-64.png"
    smooth: true
    Accessible.ignored: true
}
