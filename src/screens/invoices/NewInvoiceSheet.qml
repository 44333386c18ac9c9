// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Invoices

/// Makes an invoice of unbilled time.
FormSheet {
    required property NewInvoiceModel model

    form: model
    icon: "document"
    sheetWidth: 520
}
