// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "platform/Calendar.h"
#include "records/TimesheetEntry.h"

namespace elmworth {

/// How many different projects of a chart bear each name.
using NameCounts = std::map<std::string, int>;

[[nodiscard]] NameCounts nameCounts(std::span<const TimesheetEntry> entries);

/// How a project is called in a chart: by its name, or "{name} — {client}" when others bear the
/// name too. "—" for none.
[[nodiscard]] std::string seriesLabel(const Project* project, const NameCounts& nameCounts);

/// What the hours of a chart are summed by.
struct DayKey {
    Instant day;           ///< its start
    std::string project;   ///< the label of the series
    std::string colorHex;  ///< the colour of the series

    friend bool operator==(const DayKey&, const DayKey&) = default;
};

/// The time of one series on one day.
struct DailyBar {
    Instant day;           ///< its start
    std::string project;   ///< the label of the series
    std::string colorHex;  ///< as the project has it, which may be no colour; "#999999" for none
    double hours = 0;      ///< above 0

    friend bool operator==(const DailyBar&, const DailyBar&) = default;
};

/// The calendar days that begin within `range`, in their order. Each ends where the next begins.
[[nodiscard]] std::vector<DateInterval> daysOf(const DateInterval& range, const Calendar& calendar);

/// The hours of `entries` per day and series, on the calendar's `days`, which follow each other; a
/// running entry counts up to `now`. In ascending order of the labels by their bytes, then of the
/// days.
[[nodiscard]] std::vector<DailyBar> dailyBars(std::span<const TimesheetEntry> entries,
                                              const std::vector<DateInterval>& days, Instant now,
                                              const Calendar& calendar);

/// A label of a chart with its one colour.
struct DailySeries {
    std::string label;
    std::string colorHex;

    friend bool operator==(const DailySeries&, const DailySeries&) = default;
};

/// The series of `bars` in ascending order of their labels; the first bar of a label decides its
/// colour.
[[nodiscard]] std::vector<DailySeries> colorScale(std::span<const DailyBar> bars);

}  // namespace elmworth

template <>
struct std::hash<elmworth::DayKey> {
    std::size_t operator()(const elmworth::DayKey& key) const noexcept;
};
