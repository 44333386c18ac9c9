// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoiceSummaryModel.h"

#include "invoicing/MoneySums.h"
#include "platform/MoneyFormat.h"
#include "records/Client.h"

namespace elmworth {

namespace {

/// So many are read in a turn of the loop, which is no longer than a frame then.
constexpr std::size_t mostAtOnce = 32;

}  // namespace

InvoiceSummaryModel::InvoiceSummaryModel(const AppServices& services, LiveInvoiceTotals& totals)
    : services_(services), totals_(totals) {}

void InvoiceSummaryModel::show(const std::vector<ListedInvoice>& invoices, Instant today) {
    sent_.clear();
    for (const auto& listed : invoices) {
        if (listed.status != InvoiceStatus::sent) continue;
        auto invoice = services_.context.recordQuietly<Invoice>(listed.id);
        if (invoice) sent_.push_back({std::move(invoice), isOverdue(listed, today)});
    }
    refresh();
}

void InvoiceSummaryModel::refresh() {
    next_.reset();
    if (readSome()) {
        next_ = services_.runLoop.post([this] { refresh(); });
        return;
    }
    Shown shown = summedUp();
    if (shown == shown_) return;
    shown_ = std::move(shown);
    Q_EMIT changed();
}

/// Whether there are more to read.
bool InvoiceSummaryModel::readSome() {
    std::vector<Ref<Invoice>> missing;
    for (const auto& [invoice, isOverdue] : sent_) {
        if (totals_.keeps(invoice->id())) continue;
        if (missing.size() == mostAtOnce) {
            totals_.read(missing);
            return true;
        }
        missing.push_back(invoice);
    }
    totals_.read(missing);
    return false;
}

InvoiceSummaryModel::Shown InvoiceSummaryModel::summedUp() {
    MoneySums outstanding;
    MoneySums overdue;
    std::size_t untold = 0;
    bool hasOverdue = false;
    for (const auto& [invoice, isOverdue] : sent_) {
        hasOverdue = hasOverdue || isOverdue;
        const auto cents = totals_.cents(invoice);
        if (!cents) {
            ++untold;
            continue;
        }
        const std::string currency = invoice->effectiveCurrencyCode();
        outstanding.add(currency, *cents);
        if (isOverdue) overdue.add(currency, *cents);
    }
    const auto text = [](const MoneySums& sums) {
        return QString::fromStdString(sums.text(currentMoneyLocale()));
    };
    const QString note =
        untold == 0 ? QString() : QStringLiteral("%1 can't be added up").arg(untold);
    return {text(outstanding), text(overdue), note, hasOverdue};
}

}  // namespace elmworth
