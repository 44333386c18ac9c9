// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/TimesheetStatistics.h"

#include <algorithm>
#include <set>

#include "core/Client.h"
#include "core/Project.h"
#include "invoicing/InvoiceCalculator.h"

namespace elmworth {

namespace {

double periodSeconds(const TimeEntry& entry, const DateInterval& range, Instant now) {
    const Instant start = std::max(entry.start.get(), range.start);
    const Instant end = std::min(entry.end->value_or(now), range.end);
    return std::max(0.0, secondsBetween(start, end));
}

/// The currency of all clients of `entries`; absent when they have several, US dollars when there
/// is none.
std::optional<std::string> commonCurrency(const std::vector<Ref<TimeEntry>>& entries) {
    std::set<std::string> codes;
    for (const auto& entry : entries) {
        const auto& project = entry->project.get();
        if (project && project->client) codes.insert(project->client->currencyCode);
    }
    if (codes.size() > 1) return std::nullopt;
    return codes.empty() ? "USD" : *codes.begin();
}

}  // namespace

TimesheetStatistics timesheetStatistics(const std::vector<Ref<TimeEntry>>& entries,
                                        const DateInterval& range, Instant now) {
    TimesheetStatistics statistics;
    statistics.currencyCode = commonCurrency(entries);
    for (const auto& entry : entries) {
        const double seconds = periodSeconds(*entry, range, now);
        const std::int64_t cents =
            InvoiceCalculator::amountCents(seconds, entry->effectiveRateCents());
        statistics.trackedSeconds += seconds;
        statistics.billableCents += cents;
        if (entry->invoice || entry->isRunning()) continue;
        statistics.unbilledSeconds += seconds;
        statistics.unbilledCents += cents;
    }
    return statistics;
}

}  // namespace elmworth
