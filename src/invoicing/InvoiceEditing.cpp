// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceEditing.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "invoicing/InvoiceFiles.h"
#include "platform/Text.h"

namespace elmworth {

namespace {

void deleteStoredFile(const std::string& number) {
    try {
        std::filesystem::remove(storedInvoiceFile(number));
    } catch (const std::filesystem::filesystem_error&) {
        return;  // a PDF that stays behind costs nothing
    }
}

}  // namespace

bool canChangeDates(const Invoice& invoice) {
    return invoice.status() == InvoiceStatus::draft;
}

void setIssueDate(const Ref<Invoice>& invoice, Instant date, UnitOfWork& context) {
    const auto shift = date - invoice->issueDate.get();
    invoice->dueDate = std::max(invoice->dueDate.get() + shift, date);
    invoice->issueDate = date;
    context.saveQuietly();
}

void setDueDate(const Ref<Invoice>& invoice, Instant date, UnitOfWork& context) {
    invoice->dueDate = std::max(date, invoice->issueDate.get());
    context.saveQuietly();
}

void setInvoiceNotes(const Ref<Invoice>& invoice, std::string_view notes, UnitOfWork& context) {
    invoice->notes = std::string(firstCharacters(notes, longestInvoiceNotes));
    context.saveQuietly();
}

void renumberWithFile(const InvoiceBuilder& builder, const Ref<Invoice>& invoice,
                      std::string_view number) {
    const std::string old = invoice->number;
    builder.renumber(invoice, number);
    if (invoice->number.get() != old) deleteStoredFile(old);
}

void deleteWithFile(const InvoiceBuilder& builder, const Ref<Invoice>& invoice) {
    const std::string number = invoice->number;
    builder.deleteInvoice(invoice);
    deleteStoredFile(number);
}

}  // namespace elmworth
