// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceService.h"

#include <algorithm>

#include "invoicing/InvoiceFiles.h"
#include "platform/Text.h"

namespace elmworth {

namespace {

void requireChangeableDates(const Invoice& invoice) {
    if (!canChangeDates(invoice)) throw Refused("Dates are locked once an invoice is sent.");
}

}  // namespace

bool canChangeDates(const Invoice& invoice) {
    return invoice.status() == InvoiceStatus::draft;
}

InvoiceService::InvoiceService(UnitOfWork& context, UndoHistory& history, ProfileStore& profiles,
                               Clock now, Calendar calendar)
    : context_(context),
      history_(history),
      profiles_(profiles),
      now_(std::move(now)),
      calendar_(std::move(calendar)) {}

std::int64_t InvoiceService::taxRate(const Client& client) const {
    return client.taxBasisPoints->value_or(profiles_.profile().defaultTaxBasisPoints);
}

std::string InvoiceService::nextNumber() const {
    auto profile = profiles_.profile();
    const std::int64_t year = calendar_.components(now_()).year;
    profile.applyYearlyReset(year);
    return profile.formattedInvoiceNumber(year);
}

std::vector<Ref<TimeEntry>> InvoiceService::unbilledEntries(const Ref<Client>& client,
                                                            const DateInterval& period) const {
    return builder().unbilledEntries(client, period.start, period.end);
}

InvoiceCalculator::Totals InvoiceService::preview(const std::vector<Ref<TimeEntry>>& entries,
                                                  std::int64_t taxBasisPoints) const {
    return InvoiceCalculator::calculate(InvoiceCalculator::items(entries),
                                        profiles_.profile().roundingMinutes, taxBasisPoints);
}

InvoiceCalculator::Totals InvoiceService::preview(const Ref<Client>& client,
                                                  const DateInterval& period,
                                                  std::int64_t taxBasisPoints) const {
    return preview(unbilledEntries(client, period), taxBasisPoints);
}

Ref<Invoice> InvoiceService::create(const Ref<Client>& client, const DateInterval& period,
                                    std::int64_t taxBasisPoints) {
    auto profile = profiles_.profile();
    Ref<Invoice> invoice;
    try {
        history_.perform("Create Invoice", [&] {
            invoice =
                builder().createInvoice(client, period.start, period.end, taxBasisPoints, profile);
        });
    } catch (...) {
        profiles_.setProfile(profile);
        throw;
    }
    profiles_.setProfile(profile);
    return invoice;
}

void InvoiceService::rename(const Ref<Invoice>& invoice, std::string_view number) {
    const std::string old = invoice->number;
    history_.perform("Rename " + old, [&] { builder().renumber(invoice, number); });
    if (invoice->number.get() != old) deleteStoredInvoiceFile(old);
}

void InvoiceService::setStatus(const Ref<Invoice>& invoice, InvoiceStatus status) {
    history_.perform("Mark " + invoice->number.get() + ' ' + std::string(label(status)),
                     [&] { invoice->setStatus(status, now_()); });
}

void InvoiceService::setIssueDay(const Ref<Invoice>& invoice, Instant day) {
    requireChangeableDates(*invoice);
    const Instant date = onDay(day, invoice->issueDate);
    const auto shift = date - invoice->issueDate.get();
    edit(invoice, [&] {
        invoice->dueDate = std::max(invoice->dueDate.get() + shift, date);
        invoice->issueDate = date;
    });
}

void InvoiceService::setDueDay(const Ref<Invoice>& invoice, Instant day) {
    requireChangeableDates(*invoice);
    const Instant date = onDay(day, invoice->dueDate);
    edit(invoice, [&] { invoice->dueDate = std::max(date, invoice->issueDate.get()); });
}

void InvoiceService::setNotes(const Ref<Invoice>& invoice, std::string_view notes) {
    edit(invoice,
         [&] { invoice->notes = std::string(firstCharacters(notes, longestInvoiceNotes)); });
}

void InvoiceService::typeNotes(const Ref<Invoice>& invoice, std::string_view notes) {
    const std::string cut{firstCharacters(notes, longestInvoiceNotes)};
    if (invoice->isDeleted() || invoice->notes.get() == cut) return;
    history_.type("Edit " + invoice->number.get(), invoice->id().string() + " notes",
                  [&] { invoice->notes = cut; });
}

void InvoiceService::leaveNotes() noexcept {
    history_.leaveField();
    if (context_.hasChanges()) context_.saveQuietly();
}

void InvoiceService::setShowsEntryDetails(const Ref<Invoice>& invoice, bool shows) {
    edit(invoice, [&] { invoice->showsEntryDetails = shows; });
}

void InvoiceService::remove(const Ref<Invoice>& invoice) {
    const std::string number = invoice->number;
    history_.perform("Delete " + number, [&] { builder().deleteInvoice(invoice); });
    deleteStoredInvoiceFile(number);
}

void InvoiceService::edit(const Ref<Invoice>& invoice, const std::function<void()>& change) {
    history_.perform("Edit " + invoice->number.get(), change);
}

Instant InvoiceService::onDay(Instant day, Instant oldDate) const {
    const auto time = calendar_.components(oldDate);
    return calendar_.settingTime(time.hour, time.minute, time.second, day).value_or(day);
}

}  // namespace elmworth
