// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/Invoice.h"

#include "records/Client.h"
#include "records/TimeEntry.h"

namespace elmworth {

Invoice::Invoice(std::string invoiceNumber) {
    number = std::move(invoiceNumber);
}

InvoiceStatus Invoice::status() const {
    return invoiceStatusFromRawValue(statusRaw.get()).value_or(InvoiceStatus::draft);
}

void Invoice::setStatus(InvoiceStatus status, Instant now) {
    statusRaw = std::string(rawValue(status));
    if (status != InvoiceStatus::paid) {
        paidAt = std::nullopt;
    } else if (!paidAt.get()) {
        paidAt = now;
    }
}

std::string Invoice::effectiveCurrencyCode() const {
    if (!currencyCode->empty()) return currencyCode;
    const auto& billed = client.get();
    return billed ? billed->currencyCode.get() : "USD";
}

bool Invoice::isOverdue(Instant asOf, const Calendar& calendar) const {
    return status() == InvoiceStatus::sent &&
           calendar.startOfDay(dueDate) < calendar.startOfDay(asOf);
}

BusinessProfile Invoice::resolvedBusiness(const BusinessProfile& fallback) const {
    const auto& snapshot = businessSnapshot.get();
    if (!snapshot) return fallback;
    return decodeProfile(snapshot->bytes).value_or(fallback);
}

const RecordSchema& Invoice::schema() {
    static constexpr FieldDescription fields[] = {
        attribute<&Invoice::number>("number", {.unique = true}),
        toOne<&Invoice::client>("client"),
        attribute<&Invoice::statusRaw>("statusRaw", {.key = "status"}),
        attribute<&Invoice::issueDate>("issueDate"),
        attribute<&Invoice::dueDate>("dueDate"),
        attribute<&Invoice::periodStart>("periodStart"),
        attribute<&Invoice::periodEnd>("periodEnd"),
        attribute<&Invoice::taxRateBasisPoints>("taxRateBasisPoints"),
        attribute<&Invoice::roundingMinutes>("roundingMinutes"),
        attribute<&Invoice::currencyCode>("currencyCode"),
        attribute<&Invoice::notes>("notes"),
        attribute<&Invoice::paidAt>("paidAt"),
        attribute<&Invoice::showsEntryDetails>("showsEntryDetails", {.mayBeMissing = true}),
        attribute<&Invoice::businessSnapshot>("businessSnapshot", {.key = "business"}),
    };
    static constexpr ToManyDescription relationships[] = {
        {"entries", &TimeEntry::schema, "invoice", DeleteRule::nullify},
    };
    static constexpr IndexDescription indexes[] = {
        {"InvoiceByClient", {"client"}, "client"},
        {"InvoiceByIssueDate", {"issueDate"}},
    };
    static constexpr RecordSchema schema{"Invoice",     3,       fields,
                                         relationships, indexes, &makeRecord<Invoice>};
    return schema;
}

}  // namespace elmworth
