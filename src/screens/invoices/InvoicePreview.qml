// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Elmworth.Theme
import Elmworth.Invoices

/// The pages of an invoice as its PDF has them, one below the other.
Column {
    id: preview

    required property InvoicePreviewModel model
    /// How wide a page is.
    property real pageWidth: 430

    spacing: 16
    Accessible.role: Accessible.Grouping
    Accessible.name: "Invoice preview"

    Repeater {
        model: preview.model.rows // qmllint disable

        // The pages don't outlive their column.
        // qmllint disable unqualified
        InvoicePreviewPage {
            id: paper

            required property int index
            required property string title
            required property string text

            // On whole pixels, or the letters would blur.
            x: Math.round((preview.width - width) / 2)
            width: preview.pageWidth
            height: Math.round(width * preview.model.pageRatio)
            model: preview.model
            page: index
            corner: 6
            Accessible.role: Accessible.StaticText
            Accessible.name: title
            Accessible.description: text

            SoftShadow {
                visible: paper.isInView
                corner: 6
                strength: 0.3
                blur: 24
                offset: 8
            }
        }
        // qmllint enable unqualified
    }
}
