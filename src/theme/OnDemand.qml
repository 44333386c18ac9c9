// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick

/// A part of a screen that many visits never need. It is made when it is first wanted, so that the window shows
/// sooner, and stays from then on.
Loader {
    /// Whether the part is needed now.
    property bool wanted: false

    /// The part, made if it isn't yet.
    function make(): QtObject {
        active = true;
        return item;
    }

    active: false
    onWantedChanged: if (wanted) active = true
}
