// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <compare>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "tracking/TimesheetDays.h"

namespace elmworth {

/// Says which row of a timesheet is the same one: an entry that crosses midnight has several.
struct TimesheetRowID {
    Instant day;         ///< its start
    PersistentID entry;  ///< nil for the head of the day

    friend auto operator<=>(const TimesheetRowID&, const TimesheetRowID&) = default;
};

/// A line of a timesheet: the head of a day, or an entry of it. Lives as long as its listing.
struct TimesheetRow {
    TimesheetRowID id;
    const TimesheetDay* day = nullptr;
    TimesheetPlace place;  ///< without a piece for the head
    bool isLastOfDay = false;

    [[nodiscard]] bool isHead() const noexcept { return place.piece == nullptr; }

    /// Whether both show the same, names of projects aside.
    friend bool operator==(const TimesheetRow& a, const TimesheetRow& b);
};

/// Days of a listing that follow each other.
using TimesheetDays = std::span<const std::shared_ptr<const TimesheetDay>>;

/// How many lines `days` have: one for the head of each, and one for each of its entries.
[[nodiscard]] std::size_t timesheetRowCount(TimesheetDays days);

/// All lines of `days`, day by day.
[[nodiscard]] std::vector<TimesheetRow> timesheetRows(TimesheetDays days);

/// Where the line `id` stands among `rows`, which are of days newest first. Costs what the lines of
/// its day cost.
[[nodiscard]] std::optional<std::size_t> positionOf(const TimesheetRowID& id,
                                                    const std::vector<TimesheetRow>& rows);

}  // namespace elmworth

template <>
struct std::hash<elmworth::TimesheetRowID> {
    std::size_t operator()(const elmworth::TimesheetRowID& id) const noexcept {
        const auto day = static_cast<std::size_t>(id.day.time_since_epoch().count());
        return std::hash<elmworth::PersistentID>{}(id.entry) ^ (day * 0x9E3779B97F4A7C15U);
    }
};
