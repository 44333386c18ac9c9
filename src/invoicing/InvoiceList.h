// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <vector>

#include "invoicing/InvoiceFilter.h"
#include "store/RecordChanges.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// What puts an invoice in its place in a list, and says whether it passes a filter.
struct ListedInvoice {
    PersistentID id;
    std::string number;
    Instant issueDate;
    Instant dueDate;
    InvoiceStatus status = InvoiceStatus::draft;
};

/// All invoices, by their issue date, the newest first; those of one moment by their number, the
/// highest first. Makes no records. Throws StoreError.
[[nodiscard]] std::vector<ListedInvoice> listInvoices(UnitOfWork& context);

/// Whether `listInvoices` may give something else after `changes`.
[[nodiscard]] bool changeList(const RecordChanges& changes);

/// As `Invoice::isOverdue` on the day that begins at `today`.
[[nodiscard]] bool isOverdue(const ListedInvoice& invoice, Instant today);

/// As for an invoice, on the day that begins at `today`.
[[nodiscard]] bool passes(const ListedInvoice& invoice, InvoiceFilter filter, Instant today);

}  // namespace elmworth
