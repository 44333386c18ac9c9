// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceFilter.h"

namespace elmworth {

bool passes(const Invoice& invoice, InvoiceFilter filter, Instant now, const Calendar& calendar) {
    switch (filter) {
        case InvoiceFilter::open:
            return invoice.status() != InvoiceStatus::paid;
        case InvoiceFilter::overdue:
            return invoice.isOverdue(now, calendar);
        case InvoiceFilter::paid:
            return invoice.status() == InvoiceStatus::paid;
        default:
            return true;
    }
}

}  // namespace elmworth
