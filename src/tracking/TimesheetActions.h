// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "platform/Calendar.h"
#include "records/Project.h"
#include "records/TimeEntry.h"
#include "store/UnitOfWork.h"
#include "tracking/TimerService.h"

namespace elmworth {

// What a timesheet does to the entries that a person picked, without a memory of it: see
// TimesheetEditing for the same with undo. Each saves once, and a failed save stays pending. An
// identity stands at most once among `ids`; one whose entry is gone is passed over. Reading may
// throw StoreError; nothing is changed then.

/// What became of the entries that were picked.
struct EntryTally {
    std::size_t changed = 0;  ///< deleted, or moved from another project
    std::size_t billed = 0;   ///< left alone because they are on an invoice

    friend bool operator==(const EntryTally&, const EntryTally&) = default;
};

/// The entries among `ids` that the library still has, in the order of `ids`.
[[nodiscard]] std::vector<Ref<TimeEntry>> pickedEntries(std::span<const PersistentID> ids,
                                                        UnitOfWork& context);

/// Deletes those that are not billed, and brings the timer in line.
EntryTally deleteEntries(std::span<const PersistentID> ids, UnitOfWork& context,
                         TimerService& timer);

/// Gives those that are not billed to `project`. Does nothing when that was deleted meanwhile.
EntryTally moveEntries(std::span<const PersistentID> ids, const Ref<Project>& project,
                       UnitOfWork& context);

/// Adds an unbilled entry with the length, project and notes of `entry` on the day of `now`: at the
/// same time of the day, or so much earlier that it ends at `now`. Null, and nothing is added, when
/// `entry` runs, is shorter than a second or deleted.
Ref<TimeEntry> duplicateEntryToToday(const Ref<TimeEntry>& entry, Instant now,
                                     const Calendar& calendar, UnitOfWork& context);

}  // namespace elmworth
