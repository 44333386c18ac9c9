// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>

#include "platform/Calendar.h"
#include "records/BusinessProfile.h"
#include "records/InvoiceStatus.h"
#include "store/Schema.h"

namespace elmworth {

class Client;
class TimeEntry;

/// One issued bill. It holds no sums: those are computed from its entries whenever they are shown.
class Invoice final : public Record {
 public:
    explicit Invoice(std::string number);
    explicit Invoice(const PersistentID& id) : Record(id) {}

    Attribute<std::string> number{*this};  ///< unique in the library
    ToOne<Client> client{*this};
    Attribute<Instant> issueDate{*this};
    Attribute<Instant> dueDate{*this};
    Attribute<Instant> periodStart{*this};
    Attribute<Instant> periodEnd{*this};  ///< exclusive
    Attribute<std::int64_t> taxRateBasisPoints{*this};
    Attribute<std::string> statusRaw{*this, "draft"};        ///< written through `setStatus`
    Attribute<std::int64_t> roundingMinutes{*this, 6};       ///< rounding step of each entry
    Attribute<std::string> notes{*this};                     ///< printed on the invoice
    Attribute<std::optional<Instant>> paidAt{*this};         ///< written through `setStatus`
    Attribute<bool> showsEntryDetails{*this, true};          ///< print a line for each entry
    Attribute<std::optional<Blob>> businessSnapshot{*this};  ///< the profile at issue, as JSON
    Attribute<std::string> currencyCode{*this};              ///< empty: not frozen
    ToMany<TimeEntry> entries{*this, "invoice"};  ///< set free when the invoice is deleted

    /// The status; a stored text that is none of the three reads as `draft`.
    [[nodiscard]] InvoiceStatus status() const;

    /// Changes the status, in any direction. Paid notes `now` as the payment unless one is noted
    /// already; the other two forget it.
    void setStatus(InvoiceStatus status, Instant now = currentInstant());

    /// The invoice's own currency, else its client's, else "USD".
    [[nodiscard]] std::string effectiveCurrencyCode() const;

    /// Whether the invoice is sent and its due day lies before the day of `asOf`.
    [[nodiscard]] bool isOverdue(Instant asOf, const Calendar& calendar) const;

    /// The issuer as of the day of issue; `fallback` when there is no snapshot that can be read.
    [[nodiscard]] BusinessProfile resolvedBusiness(const BusinessProfile& fallback) const;

    [[nodiscard]] static const RecordSchema& schema();
    [[nodiscard]] const RecordSchema& recordSchema() const noexcept override { return schema(); }
};

}  // namespace elmworth
