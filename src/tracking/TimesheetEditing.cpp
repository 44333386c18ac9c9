// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimesheetEditing.h"

namespace elmworth {

TimesheetEditing::TimesheetEditing(UnitOfWork& context, UndoHistory& history, TimerService& timer,
                                   Clock now, std::function<Calendar()> calendar)
    : context_(context),
      history_(history),
      timer_(timer),
      now_(std::move(now)),
      calendar_(std::move(calendar)) {}

EntryTally TimesheetEditing::deleteEntries(std::span<const PersistentID> ids) {
    EntryTally tally;
    history_.performQuietly({"Delete Entry", "Delete %1 Entries"},
                            [&] { tally = elmworth::deleteEntries(ids, context_, timer_); });
    return tally;
}

EntryTally TimesheetEditing::moveEntries(std::span<const PersistentID> ids,
                                         const Ref<Project>& project) {
    EntryTally tally;
    history_.performQuietly({"Move Entry", "Move %1 Entries"},
                            [&] { tally = elmworth::moveEntries(ids, project, context_); });
    return tally;
}

Ref<TimeEntry> TimesheetEditing::duplicateEntryToToday(const Ref<TimeEntry>& entry) {
    if (!entry) return nullptr;
    Ref<TimeEntry> made;
    history_.performQuietly("Duplicate to Today", [&] {
        made = elmworth::duplicateEntryToToday(entry, now_(), calendar_(), context_);
    });
    return made;
}

Ref<TimeEntry> TimesheetEditing::save(const EntryForm& form, const Ref<TimeEntry>& entry) {
    Ref<TimeEntry> saved;
    history_.performQuietly(entry ? "Edit Entry" : "Add Entry",
                            [&] { saved = form.save(entry, context_, timer_); });
    return saved;
}

Ref<TimeEntry> TimesheetEditing::continueEntry(const Ref<TimeEntry>& entry) {
    if (!entry || entry->isDeleted()) return nullptr;
    Ref<TimeEntry> made;
    history_.performQuietly("Continue Tracking", [&] { made = timer_.continueEntry(entry); });
    return made;
}

}  // namespace elmworth
