// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme

/// The status of an invoice, "Draft", "Sent", "Overdue" or "Paid".
Chip {
    id: badge

    property string status: ""

    text: status
    icon: ({ Overdue: "exclamation-circle", Paid: "check" })[status] ?? ""
    tint: ({ Overdue: Theme.coralGradient[1], Paid: Theme.mintGradient[0], Sent: Theme.accentBlue })[status]
        ?? Theme.grayGradient[0]
}
