// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "invoicing/InvoiceBuilder.h"
#include "invoicing/InvoiceCalculator.h"
#include "records/FieldText.h"
#include "records/ProfileStore.h"
#include "store/UndoHistory.h"

namespace elmworth {

/// The longest notes, in user-perceived characters.
inline constexpr std::size_t longestInvoiceNotes = 600;

/// Whether issue and due date may be changed: on drafts only.
[[nodiscard]] bool canChangeDates(const Invoice& invoice);

/// What a person does to invoices. Each change is a named step of `history`, saved or not done at
/// all: throws Refused or BuildError with the sentence to show, or StoreError.
class InvoiceService {
 public:
    InvoiceService(UnitOfWork& context, UndoHistory& history, ProfileStore& profiles, Clock now,
                   Calendar calendar);

    /// The tax rate that an invoice for `client` begins with, in basis points: the client's, else
    /// the business default.
    [[nodiscard]] std::int64_t taxRate(const Client& client) const;

    /// The number that the profile has for the next invoice, taken or not.
    [[nodiscard]] std::string nextNumber() const;

    /// The entries that an invoice of `period` would take. Throws StoreError.
    [[nodiscard]] std::vector<Ref<TimeEntry>> unbilledEntries(const Ref<Client>& client,
                                                              const DateInterval& period) const;

    /// What an invoice of `entries` would come to; no lines without any. Throws FiguresError.
    [[nodiscard]] InvoiceCalculator::Totals preview(const std::vector<Ref<TimeEntry>>& entries,
                                                    std::int64_t taxBasisPoints) const;
    /// The same of the unbilled entries of `period`. Throws FiguresError or StoreError.
    [[nodiscard]] InvoiceCalculator::Totals preview(const Ref<Client>& client,
                                                    const DateInterval& period,
                                                    std::int64_t taxBasisPoints) const;

    /// Makes a draft as InvoiceBuilder does, and keeps the numbering in the profile: numbers that
    /// were skipped stay skipped when it fails.
    Ref<Invoice> create(const Ref<Client>& client, const DateInterval& period,
                        std::int64_t taxBasisPoints);

    /// Renumbers a draft as InvoiceBuilder does, and deletes the stored PDF of the old number.
    void rename(const Ref<Invoice>& invoice, std::string_view number);

    void setStatus(const Ref<Invoice>& invoice, InvoiceStatus status);

    /// Moves the issue date to the day that holds `day`, at the time of day that it has had, and
    /// with it the due date, so that the payment term stays the same. Refused unless
    /// `canChangeDates`.
    void setIssueDay(const Ref<Invoice>& invoice, Instant day);
    /// Moves the due date likewise, but not before the issue date.
    void setDueDay(const Ref<Invoice>& invoice, Instant day);

    /// Sets the notes, cut to `longestInvoiceNotes`.
    void setNotes(const Ref<Invoice>& invoice, std::string_view notes);
    /// The same while somebody types them: one step until `leaveNotes`, and not saved.
    void typeNotes(const Ref<Invoice>& invoice, std::string_view notes);
    /// Somebody is done typing: saves, and drops a failure.
    void leaveNotes() noexcept;
    void setShowsEntryDetails(const Ref<Invoice>& invoice, bool shows);

    /// Deletes the invoice and its stored PDF, and sets its entries free. A file that can't be
    /// deleted is no failure.
    void remove(const Ref<Invoice>& invoice);

 private:
    [[nodiscard]] InvoiceBuilder builder() const { return {context_, now_, calendar_}; }
    void edit(const Ref<Invoice>& invoice, const std::function<void()>& change);
    [[nodiscard]] Instant onDay(Instant day, Instant oldDate) const;

    UnitOfWork& context_;
    UndoHistory& history_;
    ProfileStore& profiles_;
    Clock now_;
    Calendar calendar_;
};

}  // namespace elmworth
