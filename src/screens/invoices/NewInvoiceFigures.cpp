// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/NewInvoiceFigures.h"

#include <utility>

#include "platform/DurationFormat.h"
#include "platform/MoneyFormat.h"

namespace elmworth {

InvoiceService NewInvoiceFigures::service() const {
    return {services_.context, services_.history, services_.profiles, services_.now,
            services_.calendar()};
}

void NewInvoiceFigures::show(const Terms& terms) {
    if (!isStale_ && terms_ == terms) return;
    const bool sameEntries =
        !isStale_ && terms_ && terms_->client == terms.client && terms_->period == terms.period;
    terms_ = terms;
    if (!sameEntries) read();
    price();
    showLines();
    Q_EMIT changed();
}

void NewInvoiceFigures::clear() {
    terms_.reset();
    isStale_ = true;
    entries_.clear();
    totals_ = {};
    problem_.clear();
    lines_.setRows({});
    Q_EMIT changed();
}

void NewInvoiceFigures::read() {
    isStale_ = false;
    problem_.clear();
    entries_.clear();
    currency_ = terms_->client ? terms_->client->currencyCode.get() : "USD";
    if (!terms_->client) return;
    try {
        entries_ = service().unbilledEntries(terms_->client, terms_->period);
    } catch (const StoreError&) {
        problem_ = QStringLiteral("The library can't be read, so there is nothing to invoice.");
        isStale_ = true;  // the next look may succeed
    }
}

void NewInvoiceFigures::price() {
    totals_ = {};
    try {
        totals_ = service().preview(entries_, terms_->taxBasisPoints);
        if (!isStale_) problem_.clear();
    } catch (const FiguresError& error) {
        problem_ = QString::fromUtf8(error.what());
    }
}

void NewInvoiceFigures::showLines() {
    std::vector<NewInvoiceLine> lines;
    for (const auto& line : totals_.lines) {
        lines.push_back(
            {.id = static_cast<int>(lines.size()),
             .name = QString::fromStdString(line.projectName),
             .detail = QStringLiteral("%1 h × %2")
                           .arg(QString::fromStdString(formatDecimalHours(line.seconds)),
                                money(line.rateCents)),
             .amount = money(line.amountCents)});
    }
    lines_.setRows(std::move(lines));
}

QString NewInvoiceFigures::entriesText() const {
    return QStringLiteral("%1 entries").arg(entries_.size());
}

QString NewInvoiceFigures::money(std::int64_t cents) const {
    return QString::fromStdString(formatCents(cents, currency_));
}

}  // namespace elmworth
