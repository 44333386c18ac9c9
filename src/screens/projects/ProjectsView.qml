// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Projects

FocusScope {
    id: view

    required property ProjectsModel model

    function takeKeyboard(): void {
        forceActiveFocus(Qt.OtherFocusReason);
    }

    // What doesn't show would keep the keyboard.
    enabled: visible

    PageHeader {
        anchors { left: parent.left; right: parent.right; top: parent.top; margins: 24 }
        title: "Projects"
    }
}
