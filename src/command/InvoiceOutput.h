// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "command/CommandSyntax.h"
#include "command/JSONOutput.h"
#include "invoicing/InvoiceCalculator.h"
#include "records/Invoice.h"

namespace elmworth {

/// What an invoice comes to, and the pages that it takes in print.
struct PricedInvoice {
    InvoiceCalculator::Totals totals;
    int pages;
};

/// The fields of an invoice and its sums, with its lines where `withLines` is set, and its pages,
/// as one JSON object. Figures for which `price` throws FiguresError are left out; "error" says
/// why.
void writeInvoice(JSONOutput& json, const Invoice& invoice,
                  const std::function<PricedInvoice()>& price, CommandEnvironment& environment,
                  bool withLines);

/// "lines" and the three sums, as fields of the object that is open.
void writeTotals(JSONOutput& json, const InvoiceCalculator::Totals& totals, bool withLines);

/// The lines, subtotal, tax and total for people.
[[nodiscard]] std::string totalsText(const InvoiceCalculator::Totals& totals,
                                     const std::string& currencyCode, const Locale& locale);

/// The total for people, or the sentence why `totals` throws FiguresError.
[[nodiscard]] std::string totalText(const Invoice& invoice,
                                    const std::function<InvoiceCalculator::Totals()>& totals,
                                    const Locale& locale);

/// The invoice as it reads to whoever gave the command.
[[nodiscard]] InvoiceRenderModel renderModel(const Invoice& invoice,
                                             const CommandEnvironment& environment, LogoImage logo);

/// Prints the whole invoice in the format that was asked for.
void printInvoice(const Invoice& invoice, CommandEnvironment& environment, CommandOutput& output);

/// "Overdue", "Sent", "Paid" or "Draft".
[[nodiscard]] std::string statusText(const Invoice& invoice, const CommandEnvironment& environment);

/// The pages that the invoice takes in print. Throws FiguresError.
[[nodiscard]] int pageCount(const Invoice& invoice, CommandEnvironment& environment);

}  // namespace elmworth
