// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <span>

#include "store/UndoHistory.h"
#include "tracking/EntryForm.h"
#include "tracking/TimesheetActions.h"

namespace elmworth {

/// What a person can do in the timesheet, each of it a step of the history. What each
/// does stands in TimesheetActions, EntryForm and TimerService. Reading may throw StoreError.
class TimesheetEditing {
 public:
    /// `calendar` gives the user's current calendar at each call.
    TimesheetEditing(UnitOfWork& context, UndoHistory& history, TimerService& timer, Clock now,
                     std::function<Calendar()> calendar);

    EntryTally deleteEntries(std::span<const PersistentID> ids);
    EntryTally moveEntries(std::span<const PersistentID> ids, const Ref<Project>& project);
    /// Null when nothing was added. `entry` may be null, as may that of `continueEntry`, for one
    /// that is gone.
    Ref<TimeEntry> duplicateEntryToToday(const Ref<TimeEntry>& entry);
    /// Saves the form into `entry`, or into a new one when that is null.
    Ref<TimeEntry> save(const EntryForm& form, const Ref<TimeEntry>& entry);
    /// Null, and nothing happens, when the entry is gone or has no project.
    Ref<TimeEntry> continueEntry(const Ref<TimeEntry>& entry);

 private:
    UnitOfWork& context_;
    UndoHistory& history_;
    TimerService& timer_;
    Clock now_;
    std::function<Calendar()> calendar_;
};

}  // namespace elmworth
