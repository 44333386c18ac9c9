// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick

/// The application's icon.
Item {
    id: mark

    property real size: 28

    readonly property int pixels: Math.ceil(size * Screen.devicePixelRatio)

    implicitWidth: size
    implicitHeight: size

    Image {
        anchors.fill: parent
        source: mark.pixels > 64 ? "qrc:/elmworth/icons/AppIcon-256.png" : "qrc:/elmworth/icons/AppIcon-64.png"
        sourceSize { width: mark.pixels; height: mark.pixels }
        Accessible.ignored: true
    }
}
