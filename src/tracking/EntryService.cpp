// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/EntryService.h"

#include <algorithm>

namespace elmworth {

namespace {

constexpr Instant::duration minimumLength = std::chrono::seconds(1);

}  // namespace

EntryService::EntryService(UnitOfWork& context, UndoHistory& history, TimerService& timer,
                           Clock now, std::function<Calendar()> calendar)
    : context_(context),
      history_(history),
      timer_(timer),
      now_(std::move(now)),
      calendar_(std::move(calendar)) {}

Ref<TimeEntry> EntryService::add(const EntryForm& form) {
    if (form.project && form.project->isArchived) {
        throw Refused("“" + fullName(*form.project) +
                      "” is archived. Unarchive it to log time on it.");
    }
    if (const auto problem = form.problem(now_())) throw Refused(std::string(*problem));
    Ref<TimeEntry> entry;
    history_.perform("Add Entry", [&] { entry = form.save(nullptr, context_, timer_); });
    return entry;
}

Ref<TimeEntry> EntryService::save(const EntryForm& form, const Ref<TimeEntry>& entry) {
    Ref<TimeEntry> saved;
    history_.performQuietly(entry ? "Edit Entry" : "Add Entry",
                            [&] { saved = form.save(entry, context_, timer_); });
    return saved;
}

std::vector<Ref<TimeEntry>> EntryService::picked(std::span<const PersistentID> ids) const {
    std::vector<Ref<TimeEntry>> entries;
    entries.reserve(ids.size());
    for (const auto& id : ids) {
        if (auto entry = context_.record<TimeEntry>(id)) entries.push_back(std::move(entry));
    }
    return entries;
}

EntryTally EntryService::deleteEntries(std::span<const PersistentID> ids) {
    const auto entries = picked(ids);
    if (entries.empty()) return {};
    EntryTally tally;
    history_.performQuietly({"Delete Entry", "Delete %1 Entries"}, [&] {
        for (const auto& entry : entries) {
            if (entry->invoice) {
                ++tally.billed;
            } else {
                context_.deleteRecord(entry);
                ++tally.changed;
            }
        }
        context_.saveQuietly();
        timer_.refresh();
    });
    return tally;
}

EntryTally EntryService::moveEntries(std::span<const PersistentID> ids,
                                     const Ref<Project>& project) {
    if (project->isDeleted()) return {};
    const auto entries = picked(ids);
    EntryTally tally;
    history_.performQuietly({"Move Entry", "Move %1 Entries"}, [&] {
        for (const auto& entry : entries) {
            if (entry->invoice) {
                ++tally.billed;
            } else if (entry->project.id() != project->id()) {
                entry->project = project;
                ++tally.changed;
            }
        }
        context_.saveQuietly();
    });
    return tally;
}

/// Where an entry that began at `start` and took `length` stands today.
std::optional<Instant> EntryService::startToday(Instant start, Instant::duration length) const {
    const Calendar calendar = calendar_();
    const Instant now = now_();
    const auto time = calendar.components(start);
    const auto today = calendar.settingTime(time.hour, time.minute, time.second, now);
    if (!today) return std::nullopt;
    return std::min(*today, now - length);
}

Ref<TimeEntry> EntryService::duplicateEntryToToday(const Ref<TimeEntry>& entry) {
    if (!entry || entry->isDeleted() || entry->isRunning()) return nullptr;
    const auto length = *entry->end.get() - entry->start.get();
    if (length < minimumLength) return nullptr;
    const auto start = startToday(entry->start, length);
    if (!start) return nullptr;
    auto duplicate = std::make_shared<TimeEntry>(*start, nullptr);
    duplicate->project = entry->project;
    duplicate->end = *start + length;
    duplicate->notes = entry->notes;
    history_.performQuietly("Duplicate to Today", [&] {
        context_.insert(duplicate);
        context_.saveQuietly();
    });
    return duplicate;
}

Ref<TimeEntry> EntryService::continueEntry(const Ref<TimeEntry>& entry) {
    if (!entry || entry->isDeleted()) return nullptr;
    Ref<TimeEntry> made;
    history_.performQuietly("Continue Tracking", [&] { made = timer_.continueEntry(entry); });
    return made;
}

}  // namespace elmworth
