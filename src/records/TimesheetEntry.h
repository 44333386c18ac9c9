// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <optional>

#include "records/Project.h"
#include "records/TimeEntry.h"

namespace elmworth {

/// What a timesheet keeps of each entry that it shows: enough to place, sum and chart it. A
/// timesheet of twenty years holds 200,000 of these, and makes records of the few that are on the
/// screen.
struct TimesheetEntry {
    PersistentID id;
    Instant start;
    std::optional<Instant> end;  ///< absent while running
    Ref<Project> project;        ///< null for none
    std::int64_t rateCents = 0;  ///< cents per hour, as TimeEntry::effectiveRateCents
    bool isBilled = false;

    [[nodiscard]] static TimesheetEntry of(const TimeEntry& entry) {
        return {entry.id(),
                entry.start,
                entry.end,
                entry.project,
                entry.effectiveRateCents(),
                static_cast<bool>(entry.invoice)};
    }
    [[nodiscard]] bool isRunning() const noexcept { return !end.has_value(); }
};

}  // namespace elmworth
