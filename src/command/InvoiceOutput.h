// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <vector>

#include "command/CommandSyntax.h"
#include "command/JSONOutput.h"
#include "core/Invoice.h"
#include "invoicing/InvoiceCalculator.h"

namespace elmworth {

/// The fields of an invoice and its sums, with its lines and pages where `withLines` is set, as one
/// JSON object.
void writeInvoice(JSONOutput& json, const Invoice& invoice, CommandEnvironment& environment,
                  bool withLines);

/// "lines" and the three sums, as fields of the object that is open.
void writeTotals(JSONOutput& json, const InvoiceCalculator::Totals& totals, bool withLines);

/// The lines, subtotal, tax and total for people.
[[nodiscard]] std::string totalsText(const InvoiceCalculator::Totals& totals,
                                     const std::string& currencyCode, const Locale& locale);

/// Prints the whole invoice in the format that was asked for.
void printInvoice(const Invoice& invoice, CommandEnvironment& environment, CommandOutput& output);

/// "Overdue", "Sent", "Paid" or "Draft".
[[nodiscard]] std::string statusText(const Invoice& invoice, const CommandEnvironment& environment);

/// The pages that the invoice takes in print.
[[nodiscard]] int pageCount(const Invoice& invoice, CommandEnvironment& environment);

}  // namespace elmworth
