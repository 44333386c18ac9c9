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

/// A line across a chart of hours.
struct HourMark {
    double hours = 0;
    std::string label;  ///< "4h": the hours without their fraction

    friend bool operator==(const HourMark&, const HourMark&) = default;
};

/// The lines of a chart whose highest column has `highest` hours: two to six at whole hours from 0
/// on, at distances that are easy to add up, the last one at or above `highest`. Hours that are not
/// above 0 or not finite count as one.
[[nodiscard]] std::vector<HourMark> hourMarks(double highest);

/// A bar in its place on the others of its day.
struct StackedBar {
    std::size_t column = 0;  ///< position of its day
    std::size_t series = 0;  ///< position of its series
    double bottom = 0;       ///< hours below it
    double top = 0;          ///< `bottom` and its own hours

    [[nodiscard]] double hours() const noexcept { return top - bottom; }
};

/// The bars of a chart, one column for each day, and what its axis shows.
struct DailyStacks {
    std::vector<DateInterval> days;
    std::vector<DailySeries> series;  ///< in ascending order of their labels
    std::vector<StackedBar> bars;  ///< by column, then from the bottom up, in order of the series
    std::vector<HourMark> hourMarks;  ///< the last one is the chart's top

    /// The bars of a column. Empty beyond the last one.
    [[nodiscard]] std::span<const StackedBar> barsOf(std::size_t column) const;
};

/// Stacks `bars`, which are in the order of `dailyBars`, on `days`.
[[nodiscard]] DailyStacks dailyStacks(std::vector<DateInterval> days,
                                      std::span<const DailyBar> bars);

}  // namespace elmworth

template <>
struct std::hash<elmworth::DayKey> {
    std::size_t operator()(const elmworth::DayKey& key) const noexcept;
};
