// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceDue.h"

#include "platform/DateFormatter.h"

namespace elmworth {

std::string dueText(const Invoice& invoice, Instant now, const Calendar& calendar,
                    const Locale& locale) {
    if (invoice.status() == InvoiceStatus::paid) {
        const auto& paidAt = invoice.paidAt.get();
        if (!paidAt) return "Paid";
        const DateFormatter dates(DateFormatter::Style::monthDay, locale, calendar.zoneID());
        return "Paid " + dates.string(*paidAt);
    }
    const int days = calendar.daysBetween(now, invoice.dueDate);
    if (days < 0) return std::to_string(-days) + " days late";
    if (days == 0) return "Due today";
    return "In " + std::to_string(days) + " days";
}

}  // namespace elmworth
