// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoicePreviewModel.h"

#include <QPainter>
#include <QSizeF>
#include <algorithm>
#include <tuple>
#include <utility>

#include "invoicing/InvoicePageView.h"
#include "screens/invoices/InvoicePreviewText.h"

namespace elmworth {

namespace {

auto headOf(const InvoiceRenderModel& model) {
    return std::tie(model.number, model.issueDate, model.dueDate, model.period, model.business,
                    model.billTo, model.logo);
}

auto closingOf(const InvoiceRenderModel& model) {
    return std::tie(model.subtotal, model.taxLabel, model.tax, model.total,
                    model.paymentInstructions, model.notes);
}

/// Whether two pages with the same index look the same on the same paper.
bool looksSame(const InvoicePage& a, const InvoiceRenderModel& invoiceA, const InvoicePage& b,
               const InvoiceRenderModel& invoiceB) {
    const bool isFirst = a.index == 0;
    const bool isLast = a.index == a.count - 1;
    return a == b && (!isFirst || headOf(invoiceA) == headOf(invoiceB)) &&
           (!isLast || closingOf(invoiceA) == closingOf(invoiceB));
}

}  // namespace

double InvoicePreviewModel::pageRatio() const {
    const QSizeF size = paperPointSize(paper_);
    return size.height() / size.width();
}

void InvoicePreviewModel::show(InvoiceRenderModel invoice, PaperSize paper) {
    const auto before = std::exchange(pages_, pages(invoice));
    const auto invoiceBefore = std::exchange(invoice_, std::move(invoice));
    const bool isOtherPaper = std::exchange(paper_, paper) != paper;
    if (isOtherPaper) Q_EMIT paperChanged();
    rows_.setRows(makeRows());
    const std::size_t kept = std::min(before.size(), pages_.size());
    for (std::size_t i = 0; i < kept; ++i) {
        const bool isSame =
            !isOtherPaper && looksSame(before[i], invoiceBefore, pages_[i], invoice_);
        if (!isSame) Q_EMIT pageChanged(static_cast<int>(i));
    }
}

void InvoicePreviewModel::clear() {
    pages_.clear();
    invoice_ = {};
    rows_.setRows({});
}

void InvoicePreviewModel::paint(int index, double width, QPainter& painter) const {
    if (index < 0 || static_cast<std::size_t>(index) >= pages_.size()) return;
    const double scale = width / paperPointSize(paper_).width();
    painter.save();
    painter.scale(scale, scale);
    InvoicePageView(pages_[static_cast<std::size_t>(index)], invoice_, paper_).paint(painter);
    painter.restore();
}

std::vector<InvoicePreviewRow> InvoicePreviewModel::makeRows() const {
    std::vector<InvoicePreviewRow> rows;
    for (const InvoicePage& page : pages_) {
        rows.push_back(
            {.id = page.index,
             .title = QStringLiteral("Page %1 of %2").arg(page.index + 1).arg(page.count),
             .text = QString::fromStdString(previewText(page, invoice_))});
    }
    return rows;
}

}  // namespace elmworth
