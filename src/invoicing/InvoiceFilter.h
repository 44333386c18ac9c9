// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/Invoice.h"

namespace elmworth {

/// Which invoices a list shows.
enum class InvoiceFilter {
    all,
    open,     ///< not paid; drafts too
    overdue,  ///< sent, and due before today
    paid,
};

[[nodiscard]] bool passes(const Invoice& invoice, InvoiceFilter filter, Instant now,
                          const Calendar& calendar);

}  // namespace elmworth
