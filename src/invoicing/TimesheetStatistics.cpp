// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/TimesheetStatistics.h"

#include "invoicing/InvoiceCalculator.h"
#include "records/Client.h"
#include "records/DateRangePreset.h"

namespace elmworth {

namespace {

void addCents(std::int64_t& sum, std::int64_t cents) {
    sum = InvoiceCalculator::limitedSum(sum, cents);
}

}  // namespace

void TimesheetSums::noteCurrency(const Project& project) {
    if (!projects_.insert(project.id()).second) return;
    if (const auto& client = project.client.get()) currencyCodes_.insert(client->currencyCode);
}

void TimesheetSums::add(const TimesheetEntry& entry) {
    ++finished_.entryCount;
    if (entry.project) noteCurrency(*entry.project);
    if (entry.isRunning()) {
        running_.push_back({entry.start, entry.rateCents});
        return;
    }
    const double seconds = secondsWithin(range_, entry.start, *entry.end);
    const std::int64_t cents = InvoiceCalculator::amountCents(seconds, entry.rateCents);
    finished_.trackedSeconds += seconds;
    addCents(finished_.billableCents, cents);
    if (entry.isBilled) return;
    finished_.unbilledSeconds += seconds;
    addCents(finished_.unbilledCents, cents);
}

void TimesheetSums::add(const TimesheetSums& other) {
    const auto& sums = other.finished_;
    finished_.entryCount += sums.entryCount;
    finished_.trackedSeconds += sums.trackedSeconds;
    finished_.unbilledSeconds += sums.unbilledSeconds;
    addCents(finished_.billableCents, sums.billableCents);
    addCents(finished_.unbilledCents, sums.unbilledCents);
    running_.insert(running_.end(), other.running_.begin(), other.running_.end());
    projects_.insert(other.projects_.begin(), other.projects_.end());
    currencyCodes_.insert(other.currencyCodes_.begin(), other.currencyCodes_.end());
}

std::optional<std::string> TimesheetSums::commonCurrency() const {
    if (currencyCodes_.size() > 1) return std::nullopt;
    return currencyCodes_.empty() ? "USD" : *currencyCodes_.begin();
}

TimesheetStatistics TimesheetSums::statistics(Instant now) const {
    TimesheetStatistics statistics = finished_;
    statistics.currencyCode = commonCurrency();
    for (const Running& entry : running_) {
        const double seconds = secondsWithin(range_, entry.start, now);
        statistics.trackedSeconds += seconds;
        addCents(statistics.billableCents,
                 InvoiceCalculator::amountCents(seconds, entry.rateCents));
    }
    return statistics;
}

}  // namespace elmworth
