// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// The small heading of a part of a screen.
PlainText {
    property string title: ""

    text: title
    size: 10
    color: Theme.secondaryText
    font.weight: Font.DemiBold
    font.letterSpacing: 0.9
    Accessible.role: Accessible.Heading
}
