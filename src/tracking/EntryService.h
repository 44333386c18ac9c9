// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <functional>
#include <span>

#include "platform/Calendar.h"
#include "records/FieldText.h"
#include "store/UndoHistory.h"
#include "tracking/EntryForm.h"

namespace elmworth {

/// What became of the entries that were picked.
struct EntryTally {
    std::size_t changed = 0;  ///< deleted, or moved from another project
    std::size_t billed = 0;   ///< left alone because they are on an invoice

    friend bool operator==(const EntryTally&, const EntryTally&) = default;
};

/// What a person does to entries apart from the timer, each change a named step of `history`.
///
/// But for `add`, a failed save stays pending. An identity stands at most once among `ids`; one
/// whose entry is gone is passed over. Reading may throw StoreError; nothing is changed then.
class EntryService {
 public:
    /// `calendar` gives the user's current calendar at each call.
    EntryService(UnitOfWork& context, UndoHistory& history, TimerService& timer, Clock now,
                 std::function<Calendar()> calendar);

    /// Adds time that was worked without the timer, saved or not at all. Throws Refused where the
    /// form has a problem, and on an archived project; throws StoreError.
    Ref<TimeEntry> add(const EntryForm& form);

    /// Saves the form, which has no problem, into `entry`, or into a new one when that is null.
    Ref<TimeEntry> save(const EntryForm& form, const Ref<TimeEntry>& entry);

    /// Deletes those that are not billed, and brings the timer in line.
    EntryTally deleteEntries(std::span<const PersistentID> ids);

    /// Gives those that are not billed to `project`. Does nothing when that was deleted meanwhile.
    EntryTally moveEntries(std::span<const PersistentID> ids, const Ref<Project>& project);

    /// Adds an unbilled entry with the length, project and notes of `entry` today: at the same time
    /// of the day, or so much earlier that it ends now. Null, and nothing is added, when `entry` is
    /// null, runs, is shorter than a second or deleted.
    Ref<TimeEntry> duplicateEntryToToday(const Ref<TimeEntry>& entry);

    /// Null, and nothing happens, when the entry is null or gone or has no project.
    Ref<TimeEntry> continueEntry(const Ref<TimeEntry>& entry);

 private:
    [[nodiscard]] std::vector<Ref<TimeEntry>> picked(std::span<const PersistentID> ids) const;
    [[nodiscard]] std::optional<Instant> startToday(Instant start, Instant::duration length) const;

    UnitOfWork& context_;
    UndoHistory& history_;
    TimerService& timer_;
    Clock now_;
    std::function<Calendar()> calendar_;
};

}  // namespace elmworth
