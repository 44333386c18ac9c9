// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <stdexcept>
#include <string_view>
#include <vector>

#include "platform/Calendar.h"
#include "records/BusinessProfile.h"
#include "records/Client.h"
#include "records/Invoice.h"
#include "records/TimeEntry.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// Why an invoice could not be made or renumbered. The message is the sentence to show; the library
/// is as it was.
class BuildError : public std::runtime_error {
 public:
    enum class Code { noEntries, emptyNumber, duplicateNumber, notDraft };
    explicit BuildError(Code code);
    [[nodiscard]] Code code() const noexcept { return code_; }

 private:
    Code code_;
};

/// Binds entries to invoices: the only writer of `TimeEntry.invoice` and
/// `TimeEntry.billedRateCents`, so that no entry is ever billed twice.
struct InvoiceBuilder {
    UnitOfWork& context;
    Clock now;
    Calendar calendar;

    /// The finished, unbilled entries of `client` whose start lies in [from, to), by start. Throws
    /// StoreError.
    [[nodiscard]] std::vector<Ref<TimeEntry>> unbilledEntries(const Ref<Client>& client,
                                                              Instant from, Instant to) const;

    /// Makes a draft invoice of all unbilled entries of the period and saves it. It takes the next
    /// free number of `profile`, freezes rates, rounding, tax rate (basis points), currency and a
    /// snapshot of `profile`. The caller keeps `profile` in either case: on success it has the
    /// advanced counter, on failure the numbers that were skipped.
    ///
    /// Throws BuildError (noEntries) or StoreError; no invoice is left half made.
    Ref<Invoice> createInvoice(const Ref<Client>& client, Instant from, Instant to,
                               std::int64_t taxBasisPoints, BusinessProfile& profile) const;

    /// Gives a draft another number, trimmed of white space, and saves. The present number again
    /// changes nothing. Throws BuildError (notDraft, emptyNumber or duplicateNumber) or StoreError.
    void renumber(const Ref<Invoice>& invoice, std::string_view number) const;

    /// Deletes the invoice in any status and saves; its entries are unbilled again. Its number is
    /// not given back. Throws StoreError; the changes then stay pending.
    void deleteInvoice(const Ref<Invoice>& invoice) const;
};

}  // namespace elmworth
