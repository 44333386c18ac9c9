// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "records/Client.h"
#include "records/DateRangePreset.h"
#include "records/Project.h"
#include "records/TimeEntry.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// Which entries a timesheet shows: those that touch a period and meet the other conditions. The
/// window, the report and the export all ask this one.
struct TimesheetFilter {
    DateInterval range;
    bool unbilledOnly = false;
    Ref<Project> project;  ///< null for all
    Ref<Client> client;    ///< null for all
    std::string search;  ///< stands in the notes, the project's or the client's name; blanks around
                         ///< it do not count

    /// Whether `entry` meets all conditions but the search at the instant `now`, up to which a
    /// running entry reaches.
    [[nodiscard]] bool admits(const TimeEntry& entry, Instant now) const;

    /// Whether `entry` is shown at the instant `now`.
    [[nodiscard]] bool passes(const TimeEntry& entry, Instant now) const;

    friend bool operator==(const TimesheetFilter&, const TimesheetFilter&) = default;
};

/// The entries that pass, newest start first. Throws StoreError.
[[nodiscard]] std::vector<Ref<TimeEntry>> filteredEntries(UnitOfWork& context,
                                                          const TimesheetFilter& filter,
                                                          Instant now);

/// Hands out the same, oldest start first, without making an object for each; see
/// UnitOfWork::forEach. Throws StoreError, and what `visit` throws.
void forEachFilteredEntry(UnitOfWork& context, const TimesheetFilter& filter, Instant now,
                          const std::function<void(const TimeEntry&)>& visit);

/// One day of a timesheet.
struct DayGroup {
    Instant day;                          ///< its start
    std::vector<Ref<TimeEntry>> entries;  ///< those that touch it, newest start first
    double seconds = 0;                   ///< their share of this day
};

/// The days of the filter's range that `entries` touch, newest first. An entry that crosses
/// midnight stands in each day that it touches.
[[nodiscard]] std::vector<DayGroup> dayGroups(const std::vector<Ref<TimeEntry>>& entries,
                                              const DateInterval& range, Instant now,
                                              const Calendar& calendar);

}  // namespace elmworth
