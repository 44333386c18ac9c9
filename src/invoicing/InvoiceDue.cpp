// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceDue.h"

#include "platform/Counted.h"
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
    if (days < 0) return counted(static_cast<std::uint64_t>(-days), "day", "days") + " late";
    if (days == 0) return "Due today";
    return "In " + counted(static_cast<std::uint64_t>(days), "day", "days");
}

}  // namespace elmworth
