// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimesheetFilter.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include "tracking/TimesheetSearch.h"

namespace elmworth {

namespace {

/// The parts of an entry that lie in each day of `range`.
void addToDays(const Ref<TimeEntry>& entry, const DateInterval& range, Instant now,
               const Calendar& calendar, std::optional<DateInterval>& known,
               std::map<Instant, DayGroup>& days) {
    const Instant end = entry->end->value_or(now);
    for (const auto& slice : splitByDay(entry->start, end, calendar, known)) {
        if (slice.day < range.start || slice.day >= range.end) continue;
        auto& group = days[slice.day];
        group.day = slice.day;
        group.entries.push_back(entry);
        group.seconds += slice.seconds;
    }
}

/// The entries that begin in `range`, in their order.
Query<TimeEntry> begunWithin(const DateInterval& range) {
    return {.predicate =
                key<&TimeEntry::start>() >= range.start && key<&TimeEntry::start>() < range.end,
            .sortBy = {sortedBy<&TimeEntry::start>()}};
}

/// The entries that began before `from` and end after it, or run.
std::vector<Ref<TimeEntry>> entriesReachingInto(UnitOfWork& context, Instant from) {
    // Those that end after it may be all of the library, of which none began before.
    const auto first = context.fetch(Query<TimeEntry>{.predicate = key<&TimeEntry::start>() < from,
                                                      .sortBy = {sortedBy<&TimeEntry::start>()},
                                                      .fetchLimit = 1});
    if (first.empty()) return {};
    // They are few among all that end later, of which only an index is read.
    std::vector<PersistentID> ids;
    context.forEachValues<&TimeEntry::start>(
        std::optional(key<&TimeEntry::start>() < from && key<&TimeEntry::end>() > from),
        [&](const PersistentID& id, Instant) { ids.push_back(id); });
    auto entries = context.fetch(Query<TimeEntry>{.predicate = key<&TimeEntry::start>() < from &&
                                                               key<&TimeEntry::end>() == absent});
    for (const auto& id : ids) entries.push_back(context.record<TimeEntry>(id));
    return entries;
}

}  // namespace

bool TimesheetFilter::admits(const TimeEntry& entry, Instant now) const {
    if (entry.start.get() >= range.end) return false;
    if (entry.end->value_or(now) <= range.start) return false;
    if (unbilledOnly && entry.invoice) return false;
    const auto& owner = entry.project.get();
    if (project && owner != project) return false;
    if (client && !(owner && owner->client.get() == client)) return false;
    return true;
}

bool TimesheetFilter::passes(const TimeEntry& entry, Instant now) const {
    return admits(entry, now) && TimesheetSearch(search).finds(entry.notes.get(), entry.project);
}

std::vector<Ref<TimeEntry>> filteredEntries(UnitOfWork& context, const TimesheetFilter& filter,
                                            Instant now) {
    auto entries = entriesReachingInto(context, filter.range.start);
    std::ranges::move(context.fetch(begunWithin(filter.range)), std::back_inserter(entries));
    const TimesheetSearch search(filter.search);
    std::erase_if(entries, [&](const auto& entry) {
        return !filter.admits(*entry, now) || !search.finds(entry->notes.get(), entry->project);
    });
    std::sort(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
        return std::pair(b->start.get(), b->id()) < std::pair(a->start.get(), a->id());
    });
    return entries;
}

void forEachFilteredEntry(UnitOfWork& context, const TimesheetFilter& filter, Instant now,
                          const std::function<void(const TimeEntry&)>& visit) {
    const TimesheetSearch search(filter.search);
    const auto visitIfShown = [&](const TimeEntry& entry) {
        if (filter.admits(entry, now) && search.finds(entry.notes.get(), entry.project))
            visit(entry);
    };
    // Kept meanwhile, so that each is read once and not again for every entry.
    const auto projects = context.fetch<Project>();
    const auto clients = context.fetch<Client>();
    auto begunBefore = entriesReachingInto(context, filter.range.start);
    std::sort(begunBefore.begin(), begunBefore.end(), [](const auto& a, const auto& b) {
        return std::pair(a->start.get(), a->id()) < std::pair(b->start.get(), b->id());
    });
    for (const auto& entry : begunBefore) visitIfShown(*entry);
    context.forEach<TimeEntry>(begunWithin(filter.range), visitIfShown);
}

std::vector<DayGroup> dayGroups(const std::vector<Ref<TimeEntry>>& entries,
                                const DateInterval& range, Instant now, const Calendar& calendar) {
    std::map<Instant, DayGroup> days;
    std::optional<DateInterval> known;
    for (const auto& entry : entries) addToDays(entry, range, now, calendar, known, days);
    std::vector<DayGroup> groups;
    groups.reserve(days.size());
    for (auto& [day, group] : days) groups.push_back(std::move(group));
    std::reverse(groups.begin(), groups.end());
    return groups;
}

}  // namespace elmworth
