// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>

#include "invoicing/InvoicePages.h"
#include "records/BusinessProfile.h"

class QPainter;
class QSizeF;

namespace elmworth {

/// The size of a page in points (1/72 inch).
[[nodiscard]] QSizeF paperPointSize(PaperSize paper);

/// Paints one page of an invoice at fixed measures in points; one layout serves the PDF and the
/// preview on the screen.
class InvoicePageView {
 public:
    InvoicePageView(const InvoicePage& page, const InvoiceRenderModel& model, PaperSize paper)
        : page_(page), model_(model), paper_(paper) {}

    /// Paints the page into `painter`, whose coordinates are points with the origin at the page's
    /// upper left corner. The painter's state is restored.
    void paint(QPainter& painter) const;

 private:
    const InvoicePage& page_;
    const InvoiceRenderModel& model_;
    PaperSize paper_;
};

}  // namespace elmworth
