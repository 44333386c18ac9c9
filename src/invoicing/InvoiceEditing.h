// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <string_view>

#include "invoicing/InvoiceBuilder.h"
#include "records/Invoice.h"

namespace elmworth {

// What can be changed on an invoice that exists. Unless said otherwise a failed save stays pending.

/// The longest notes, in user-perceived characters.
inline constexpr std::size_t longestInvoiceNotes = 600;

/// Whether issue and due date may be changed: on drafts only.
[[nodiscard]] bool canChangeDates(const Invoice& invoice);

/// Moves the issue date and with it the due date, so that the payment term stays the same; saves.
void setIssueDate(const Ref<Invoice>& invoice, Instant date, UnitOfWork& context);

/// Moves the due date, but not before the issue date; saves.
void setDueDate(const Ref<Invoice>& invoice, Instant date, UnitOfWork& context);

/// Sets the notes, cut to `longestInvoiceNotes`; saves.
void setInvoiceNotes(const Ref<Invoice>& invoice, std::string_view notes, UnitOfWork& context);

/// Renumbers a draft as InvoiceBuilder does, and deletes the stored PDF of the old number. Throws
/// as InvoiceBuilder::renumber; a file that cannot be deleted is no failure.
void renumberWithFile(const InvoiceBuilder& builder, const Ref<Invoice>& invoice,
                      std::string_view number);

/// Deletes the stored PDF and the invoice, and sets its entries free. Throws StoreError; a file
/// that cannot be deleted is no failure.
void deleteWithFile(const InvoiceBuilder& builder, const Ref<Invoice>& invoice);

}  // namespace elmworth
