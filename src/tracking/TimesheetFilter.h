// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/LocalizedSearch.h"
#include "records/Client.h"
#include "records/DateRangePreset.h"
#include "records/Project.h"
#include "records/TimeEntry.h"

namespace elmworth {

/// Which entries a timesheet shows: those that touch a period and meet the other conditions. The
/// window, the report and the export all ask this one.
struct TimesheetFilter {
    DateInterval range;
    bool unbilledOnly = false;
    Ref<Project> project;  ///< null for all
    Ref<Client> client;    ///< null for all
    std::string search;    ///< see TimesheetSearch

    /// Whether `entry` meets all conditions but the search at the instant `now`, up to which a
    /// running entry reaches.
    [[nodiscard]] bool admits(const TimeEntry& entry, Instant now) const;

    friend bool operator==(const TimesheetFilter&, const TimesheetFilter&) = default;
};

/// What somebody typed to find entries by. For one pass over many entries: it remembers which
/// projects bear the text, and is made anew when names may have changed.
class TimesheetSearch {
 public:
    /// Blanks around `typed` do not count.
    explicit TimesheetSearch(std::string_view typed);

    /// Whether the text stands in the notes of an entry, in its project's name or in that of the
    /// project's client, or nothing is looked for. `project` may be null.
    [[nodiscard]] bool finds(std::string_view notes, const Ref<Project>& project) const;

 private:
    [[nodiscard]] bool isNamedSo(const Ref<Project>& project) const;

    bool isEmpty_;
    LocalizedSearch search_;
    mutable std::unordered_map<const Project*, bool> projects_;
};

}  // namespace elmworth
