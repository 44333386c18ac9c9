// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimesheetEditing.h"

namespace elmworth {

namespace {

/// The identity of `entry`, or none of null.
std::vector<PersistentID> identityOf(const Ref<TimeEntry>& entry) {
    return entry ? std::vector{entry->id()} : std::vector<PersistentID>{};
}

}  // namespace

TimesheetEditing::TimesheetEditing(UnitOfWork& context, TimerService& timer, Clock now,
                                   std::function<Calendar()> calendar)
    : context_(context),
      timer_(timer),
      now_(std::move(now)),
      calendar_(std::move(calendar)),
      history_(context, timer, now_) {}

EntryTally TimesheetEditing::deleteEntries(std::span<const PersistentID> ids) {
    EntryTally tally;
    history_.perform(EntryAction::remove, ids, [&] {
        tally = elmworth::deleteEntries(ids, context_, timer_);
        return nullptr;
    });
    return tally;
}

EntryTally TimesheetEditing::moveEntries(std::span<const PersistentID> ids,
                                         const Ref<Project>& project) {
    EntryTally tally;
    history_.perform(EntryAction::move, ids, [&] {
        tally = elmworth::moveEntries(ids, project, context_);
        return nullptr;
    });
    return tally;
}

Ref<TimeEntry> TimesheetEditing::duplicateEntryToToday(const Ref<TimeEntry>& entry) {
    if (!entry) return nullptr;
    return history_.perform(EntryAction::duplicate, {}, [&] {
        return elmworth::duplicateEntryToToday(entry, now_(), calendar_(), context_);
    });
}

Ref<TimeEntry> TimesheetEditing::save(const EntryForm& form, const Ref<TimeEntry>& entry) {
    const auto action = entry ? EntryAction::edit : EntryAction::add;
    Ref<TimeEntry> saved;
    history_.perform(action, identityOf(entry), [&] {
        saved = form.save(entry, context_, timer_);
        return saved == entry ? nullptr : saved;
    });
    return saved;
}

Ref<TimeEntry> TimesheetEditing::continueEntry(const Ref<TimeEntry>& entry) {
    if (!entry || entry->isDeleted()) return nullptr;
    const auto stopped = identityOf(timer_.running());
    return history_.perform(EntryAction::continueTracking, stopped,
                            [&] { return timer_.continueEntry(entry); });
}

}  // namespace elmworth
