// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/LocalizedSearch.h"
#include "platform/Text.h"
#include "support/DaySlices.h"
#include "support/Instants.h"
#include "tracking/TimesheetDays.h"

namespace elmworth::test {

/// What a timesheet shows, line by line: all its entries, then each day with its own.
using ListingLines = std::vector<std::string>;

inline std::string dayLine(Instant day, double seconds) {
    return "day " + iso(day) + ' ' + std::to_string(std::llround(seconds));
}

inline std::string entryLine(const PersistentID& id, std::string_view notes) {
    return "  " + id.string() + ' ' + std::string(notes);
}

inline ListingLines linesOf(const TimesheetListing& listing, Instant now) {
    ListingLines lines;
    for (const auto& place : listing.entries) {
        lines.push_back(entryLine(place.entry().id, place.notes()));
    }
    for (const auto& day : listing.days) {
        lines.push_back(dayLine(day->start, day->seconds(now)));
        for (const auto& place : day->entries) lines.push_back(entryLine(place.entry().id, ""));
    }
    return lines;
}

/// Whether `filter` shows `entry`, condition by condition.
inline bool isShown(const TimeEntry& entry, const TimesheetFilter& filter, Instant now) {
    if (!(entry.start.get() < filter.range.end)) return false;
    if (!(entry.end->value_or(now) > filter.range.start)) return false;
    if (filter.unbilledOnly && entry.invoice.get()) return false;
    const auto project = entry.project.get();
    const auto client = project ? project->client.get() : nullptr;
    if (filter.project && project != filter.project) return false;
    if (filter.client && client != filter.client) return false;
    const auto typed = trimmedBlanks(filter.search);
    if (typed.empty()) return true;
    const LocalizedSearch search(typed);
    return search.findsIn(entry.notes.get()) || (project && search.findsIn(project->name.get())) ||
           (client && search.findsIn(client->name.get()));
}

/// The lines that the rules give, from all entries of the library.
inline ListingLines naiveListing(UnitOfWork& context, const TimesheetFilter& filter, Instant now,
                                 const Calendar& calendar) {
    auto entries = context.fetch<TimeEntry>();
    std::erase_if(entries, [&](const auto& entry) { return !isShown(*entry, filter, now); });
    std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
        return std::pair(b->start.get(), b->id()) < std::pair(a->start.get(), a->id());
    });
    ListingLines lines;
    std::map<Instant, std::pair<double, ListingLines>> days;
    for (const auto& entry : entries) {
        lines.push_back(entryLine(entry->id(), entry->notes.get()));
        for (const auto& slice : splitByDay(entry->start, entry->end->value_or(now), calendar)) {
            if (slice.day < filter.range.start || slice.day >= filter.range.end) continue;
            auto& [seconds, ofDay] = days[slice.day];
            seconds += slice.seconds;
            ofDay.push_back(entryLine(entry->id(), ""));
        }
    }
    for (auto day = days.rbegin(); day != days.rend(); ++day) {
        lines.push_back(dayLine(day->first, day->second.first));
        lines.insert(lines.end(), day->second.second.begin(), day->second.second.end());
    }
    return lines;
}

}  // namespace elmworth::test
