// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceRenderModel.h"

#include <algorithm>
#include <utility>

#include "invoicing/InvoiceCalculator.h"
#include "platform/DateFormatter.h"
#include "platform/DurationFormat.h"
#include "platform/MoneyFormat.h"
#include "platform/Text.h"
#include "records/Client.h"
#include "records/Invoice.h"

namespace elmworth {

namespace {

std::vector<InvoiceRenderModel::Row> makeRows(const InvoiceCalculator::Totals& totals,
                                              const Invoice& invoice, const Locale& money,
                                              const DateFormatter& dates) {
    const std::string currency = invoice.effectiveCurrencyCode();
    std::vector<InvoiceRenderModel::Row> rows;
    for (const auto& line : totals.lines) {
        rows.emplace_back(
            InvoiceRenderModel::ProjectRow{line.projectName, formatDecimalHours(line.seconds),
                                           formatCents(line.rateCents, currency, money),
                                           formatCents(line.amountCents, currency, money)});
        if (!invoice.showsEntryDetails) continue;
        for (const auto& entry : line.entries) {
            rows.emplace_back(InvoiceRenderModel::EntryRow{dates.string(entry.date), entry.notes,
                                                           formatDecimalHours(entry.seconds)});
        }
    }
    return rows;
}

std::optional<std::string> makeTaxLabel(const Invoice& invoice, const BusinessProfile& business) {
    if (invoice.taxRateBasisPoints < 1) return std::nullopt;
    const std::string word = business.taxLabel.empty() ? "Tax" : business.taxLabel;
    return word + " (" + formatBasisPoints(invoice.taxRateBasisPoints) + "%)";
}

/// The end is exclusive, at midnight: people read the last day before it.
std::string makePeriod(const Invoice& invoice, const DateFormatter& dates) {
    const Instant start = invoice.periodStart;
    const Instant end = std::max(start, invoice.periodEnd.get());
    return dates.string(start) + " – " + dates.string(end - std::chrono::seconds(1));
}

DateFormatter mediumDates(const InvoiceFormats& formats) {
    return {DateFormatter::Style::mediumDate, formats.dates, formats.zoneID};
}

InvoiceRenderModel::Party makeBillTo(const Ref<Client>& client) {
    if (!client) return {};
    return {client->name, client->address, client->email, {}};
}

}  // namespace

InvoiceRenderModel makeInvoiceFrame(const Invoice& invoice, const BusinessProfile& profile,
                                    LogoImage logo) {
    const auto business = invoice.resolvedBusiness(profile);
    InvoiceRenderModel model;
    model.business = {business.name, business.address, business.email, business.taxID};
    model.billTo = makeBillTo(invoice.client);
    model.taxLabel = makeTaxLabel(invoice, business);
    model.paymentInstructions = business.paymentInstructions;
    model.notes = trimmedWhitespace(invoice.notes.get());
    model.logo = std::move(logo);
    return model;
}

InvoiceRenderModel makeInvoiceHead(const Invoice& invoice, const BusinessProfile& profile,
                                   const InvoiceFormats& formats, LogoImage logo) {
    const DateFormatter dates = mediumDates(formats);
    auto model = makeInvoiceFrame(invoice, profile, std::move(logo));
    model.number = invoice.number;
    model.issueDate = dates.string(invoice.issueDate);
    model.dueDate = dates.string(invoice.dueDate);
    model.period = makePeriod(invoice, dates);
    return model;
}

InvoiceRenderModel makeInvoiceRenderModel(const Invoice& invoice, const BusinessProfile& profile,
                                          const InvoiceFormats& formats, LogoImage logo) {
    return makeInvoiceRenderModel(invoice, InvoiceCalculator::totals(invoice), profile, formats,
                                  std::move(logo));
}

InvoiceRenderModel makeInvoiceRenderModel(const Invoice& invoice,
                                          const InvoiceCalculator::Totals& totals,
                                          const BusinessProfile& profile,
                                          const InvoiceFormats& formats, LogoImage logo) {
    const std::string currency = invoice.effectiveCurrencyCode();
    auto model = makeInvoiceHead(invoice, profile, formats, std::move(logo));
    model.rows = makeRows(totals, invoice, formats.money, mediumDates(formats));
    model.subtotal = formatCents(totals.subtotalCents, currency, formats.money);
    model.tax = formatCents(totals.taxCents, currency, formats.money);
    model.total = formatCents(totals.totalCents, currency, formats.money);
    return model;
}

}  // namespace elmworth
