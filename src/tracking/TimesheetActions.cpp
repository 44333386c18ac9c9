// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimesheetActions.h"

#include <algorithm>

namespace elmworth {

namespace {

using namespace std::chrono_literals;

constexpr Instant::duration minimumLength = 1s;

/// Where an entry that began at `start` and took `length` stands on the day of `now`.
std::optional<Instant> startToday(Instant start, Instant::duration length, Instant now,
                                  const Calendar& calendar) {
    const auto time = calendar.components(start);
    const auto today = calendar.settingTime(time.hour, time.minute, time.second, now);
    if (!today) return std::nullopt;
    return std::min(*today, now - length);
}

}  // namespace

std::vector<Ref<TimeEntry>> pickedEntries(std::span<const PersistentID> ids, UnitOfWork& context) {
    std::vector<Ref<TimeEntry>> entries;
    entries.reserve(ids.size());
    for (const auto& id : ids) {
        if (auto entry = context.record<TimeEntry>(id)) entries.push_back(std::move(entry));
    }
    return entries;
}

EntryTally deleteEntries(std::span<const PersistentID> ids, UnitOfWork& context,
                         TimerService& timer) {
    const auto entries = pickedEntries(ids, context);
    if (entries.empty()) return {};
    EntryTally tally;
    for (const auto& entry : entries) {
        if (entry->invoice) {
            ++tally.billed;
        } else {
            context.deleteRecord(entry);
            ++tally.changed;
        }
    }
    context.saveQuietly();
    timer.refresh();
    return tally;
}

EntryTally moveEntries(std::span<const PersistentID> ids, const Ref<Project>& project,
                       UnitOfWork& context) {
    if (project->isDeleted()) return {};
    EntryTally tally;
    for (const auto& entry : pickedEntries(ids, context)) {
        if (entry->invoice) {
            ++tally.billed;
        } else if (entry->project.id() != project->id()) {
            entry->project = project;
            ++tally.changed;
        }
    }
    context.saveQuietly();
    return tally;
}

Ref<TimeEntry> duplicateEntryToToday(const Ref<TimeEntry>& entry, Instant now,
                                     const Calendar& calendar, UnitOfWork& context) {
    if (entry->isDeleted() || entry->isRunning()) return nullptr;
    const auto length = *entry->end.get() - entry->start.get();
    if (length < minimumLength) return nullptr;
    const auto start = startToday(entry->start, length, now, calendar);
    if (!start) return nullptr;
    auto duplicate = std::make_shared<TimeEntry>(*start, nullptr);
    duplicate->project = entry->project;
    duplicate->end = *start + length;
    duplicate->notes = entry->notes;
    context.insert(duplicate);
    context.saveQuietly();
    return duplicate;
}

}  // namespace elmworth
