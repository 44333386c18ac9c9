// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// The ground of a window.
Rectangle {
    gradient: Gradient {
        GradientStop { position: 0; color: Theme.backgroundTop }
        GradientStop { position: 1; color: Theme.backgroundBottom }
    }
}
