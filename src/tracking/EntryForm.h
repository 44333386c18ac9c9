// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Calendar.h"
#include "records/Project.h"
#include "records/TimeEntry.h"
#include "store/UnitOfWork.h"
#include "tracking/TimerService.h"

namespace elmworth {

/// What a person types to add or change a time entry. Nothing touches a record before `save`.
struct EntryForm {
    Ref<Project> project;
    Instant start;
    Instant end;
    std::string notes;
    bool wasRunning = false;  ///< a running entry stays running: its end is not looked at

    /// An hour on the day that holds `day`, or today when that is absent: from 09:00 on, or an hour
    /// ago where that is earlier. Its project is the one used last.
    [[nodiscard]] static EntryForm forNewEntry(std::optional<Instant> day, Instant now,
                                               const Calendar& calendar, const TimerService& timer);
    /// What `entry` holds; a running one ends now.
    [[nodiscard]] static EntryForm of(const TimeEntry& entry, Instant now);

    /// Why this cannot be saved, as a sentence; absent when it can. The future can't be logged, but
    /// an entry may end in it.
    [[nodiscard]] std::optional<std::string_view> problem(Instant now) const;
    /// The same for the times alone.
    [[nodiscard]] std::optional<std::string_view> timeProblem(Instant now) const;

    /// Writes the form into `entry`, or into a new one when that is null, saves, and brings the
    /// timer in line. A failed save stays pending in `context`. Requires `problem` to be absent.
    Ref<TimeEntry> save(Ref<TimeEntry> entry, UnitOfWork& context, TimerService& timer) const;

    friend bool operator==(const EntryForm&, const EntryForm&) = default;
};

}  // namespace elmworth
