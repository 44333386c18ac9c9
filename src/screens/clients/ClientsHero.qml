// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Clients

/// What stands in the place of the cards before there is any client.
EmptyHero {
    id: hero

    required property ClientsModel model

    function takeKeyboard(): void {
        button.forceActiveFocus(Qt.TabFocusReason);
    }

    icon: "people-filled"
    title: "Add your first client"
    message: "Clients hold your rate, currency and billing address. Projects and invoices hang off them."

    GlowButton {
        id: button

        text: "Add your first client"
        prominent: true
        colors: Theme.primaryGradient
        onClicked: hero.model.add()
    }
}
