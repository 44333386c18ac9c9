// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <vector>

#include "records/Invoice.h"
#include "store/RecordChanges.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// Which invoices a list shows.
enum class InvoiceFilter {
    all,
    open,     ///< not paid; drafts too
    overdue,  ///< sent, and due before today
    paid,
};

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

/// Whether a list that shows `filter` has it, on the day that begins at `today`.
[[nodiscard]] bool passes(const ListedInvoice& invoice, InvoiceFilter filter, Instant today);

}  // namespace elmworth
