// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceBuilder.h"

#include <algorithm>
#include <limits>
#include <unordered_set>
#include <utility>

#include "platform/ISO8601.h"
#include "platform/Text.h"
#include "records/Project.h"

namespace elmworth {

namespace {

const char* message(BuildError::Code code) {
    switch (code) {
        case BuildError::Code::noEntries:
            return "There are no unbilled, finished entries for this client and range.";
        case BuildError::Code::emptyNumber:
            return "The invoice number can't be empty.";
        case BuildError::Code::duplicateNumber:
            return "Another invoice already uses that number.";
        case BuildError::Code::notDraft:
            return "Only draft invoices can be renumbered.";
    }
    return "";
}

/// The numbers of all invoices, to be asked in canonical form. A library that cannot be read must
/// not stand in the way of the operation, and has none.
std::unordered_set<std::string> takenNumbers(UnitOfWork& context) {
    try {
        std::unordered_set<std::string> numbers;
        context.forEach<Invoice>(
            {}, [&](const Invoice& invoice) { numbers.insert(canonical(invoice.number.get())); });
        return numbers;
    } catch (const StoreError&) {
        return {};
    }
}

/// Moves the counter of `profile` on to a number that is free, and gives it.
std::string takeNumber(UnitOfWork& context, BusinessProfile& profile, std::int64_t year) {
    const auto taken = takenNumbers(context);
    std::string candidate = profile.formattedInvoiceNumber(year);
    while (taken.contains(canonical(candidate))) {
        if (profile.nextInvoiceNumber == std::numeric_limits<std::int64_t>::max()) {
            throw BuildError(BuildError::Code::duplicateNumber);
        }
        ++profile.nextInvoiceNumber;
        candidate = profile.formattedInvoiceNumber(year);
    }
    return candidate;
}

std::optional<std::int64_t> rateOfTheMoment(const TimeEntry& entry) {
    const auto& project = entry.project.get();
    return project ? std::optional(project->effectiveRateCents()) : std::nullopt;
}

/// The day of the issue where the calendar, or what is stored, has no such day.
Instant dueDate(const Calendar& calendar, Instant issue, std::int64_t days) {
    if (days < std::numeric_limits<int>::min() || days > std::numeric_limits<int>::max()) {
        return issue;
    }
    const auto due = calendar.adding(static_cast<int>(days), CalendarUnit::day, issue);
    return due && hasISO8601(*due) ? *due : issue;
}

}  // namespace

BuildError::BuildError(Code code) : std::runtime_error(message(code)), code_(code) {}

std::vector<Ref<TimeEntry>> InvoiceBuilder::unbilledEntries(const Ref<Client>& client, Instant from,
                                                            Instant to) const {
    const CompleteReading reading(context);
    std::vector<Ref<TimeEntry>> entries;
    for (const auto& project : client->projects()) {
        const auto some = context.fetch(Query<TimeEntry>{
            .predicate = key<&TimeEntry::project>() == project &&
                         key<&TimeEntry::end>() != absent && key<&TimeEntry::invoice>() == absent &&
                         key<&TimeEntry::start>() >= from && key<&TimeEntry::start>() < to,
        });
        entries.insert(entries.end(), some.begin(), some.end());
    }
    reading.check();
    std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
        return std::pair(a->start.get(), a->id()) < std::pair(b->start.get(), b->id());
    });
    return entries;
}

Ref<Invoice> InvoiceBuilder::createInvoice(const Ref<Client>& client, Instant from, Instant to,
                                           std::int64_t taxBasisPoints,
                                           BusinessProfile& profile) const {
    // What waits from an earlier failed save must not be rolled back with this invoice.
    if (context.hasChanges()) context.save();
    const auto entries = unbilledEntries(client, from, to);
    if (entries.empty()) throw BuildError(BuildError::Code::noEntries);

    const Instant issue = now();
    const std::int64_t year = calendar.components(issue).year;
    profile.applyYearlyReset(year);
    auto invoice = std::make_shared<Invoice>(takeNumber(context, profile, year));
    invoice->client = client;
    invoice->issueDate = issue;
    invoice->dueDate = dueDate(calendar, issue, client->dueDays->value_or(profile.defaultDueDays));
    invoice->periodStart = from;
    invoice->periodEnd = to;
    invoice->taxRateBasisPoints = taxBasisPoints;
    invoice->roundingMinutes = profile.roundingMinutes;
    invoice->currencyCode = client->currencyCode;
    invoice->businessSnapshot = Blob{encodeProfile(profile)};
    context.insert(invoice);
    for (const auto& entry : entries) {
        entry->billedRateCents = rateOfTheMoment(*entry);
        entry->invoice = invoice;
    }
    context.saveOrRollback();
    if (profile.nextInvoiceNumber < std::numeric_limits<std::int64_t>::max()) {
        ++profile.nextInvoiceNumber;
    }
    return invoice;
}

void InvoiceBuilder::renumber(const Ref<Invoice>& invoice, std::string_view number) const {
    const std::string trimmed{trimmedWhitespace(number)};
    if (invoice->status() != InvoiceStatus::draft) throw BuildError(BuildError::Code::notDraft);
    if (trimmed.empty()) throw BuildError(BuildError::Code::emptyNumber);
    if (canonical(trimmed) == canonical(invoice->number.get())) return;
    if (takenNumbers(context).contains(canonical(trimmed)))
        throw BuildError(BuildError::Code::duplicateNumber);
    invoice->number = trimmed;
    context.save();
}

void InvoiceBuilder::deleteInvoice(const Ref<Invoice>& invoice) const {
    for (const auto& entry : invoice->entries()) {
        entry->invoice = nullptr;
        entry->billedRateCents = std::nullopt;
    }
    context.deleteRecord(invoice);
    context.save();
}

}  // namespace elmworth
