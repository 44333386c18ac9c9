// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// A line between parts.
Rectangle {
    implicitWidth: 1
    implicitHeight: 1
    color: Theme.hairline
}
