// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <cstdint>
#include <optional>

#include "platform/DateFormatter.h"
#include "screens/AppServices.h"
#include "screens/invoices/InvoiceOutlets.h"

namespace elmworth {

/// What a badge says of an invoice.
enum class InvoiceBadge { draft, sent, overdue, paid };

[[nodiscard]] InvoiceBadge badgeOf(const Invoice& invoice, Instant now, const Calendar& calendar);
/// "Draft", "Sent", "Overdue" or "Paid".
[[nodiscard]] QString badgeText(InvoiceBadge badge);

/// An invoice in a list, with finished texts.
struct InvoiceLook {
    QString number;
    QString client;   ///< its name, empty without one
    QString caption;  ///< client and day of issue
    QString amount;   ///< "—" when it can't be told
    InvoiceBadge badge = InvoiceBadge::draft;

    /// All of it in a sentence, for assistive technology.
    [[nodiscard]] QString summary() const;
};

/// The look of `invoice`, whose total is `cents`; `dates` writes the month and the day.
[[nodiscard]] InvoiceLook lookOf(const Invoice& invoice, std::optional<std::int64_t> cents,
                                 const AppServices& services, const DateFormatter& dates);

}  // namespace elmworth
