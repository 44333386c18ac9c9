// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Layouts
import Elmworth.Theme

/// The word before a control in the rows of a form, on the line of its text.
PlainText {
    Layout.alignment: Qt.AlignTop
    Layout.preferredHeight: 32
    verticalAlignment: Text.AlignVCenter
    color: Theme.secondaryText
    // The control says it.
    Accessible.ignored: true
}
