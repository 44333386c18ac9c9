// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "screens/timesheet/DailyBars.h"
#include "screens/timesheet/HourAxis.h"

namespace elmworth {

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
    /// The hours of a column.
    [[nodiscard]] double hoursOf(std::size_t column) const;
};

/// Stacks `bars`, which are in the order of `dailyBars`, on `days`.
[[nodiscard]] DailyStacks dailyStacks(std::vector<DateInterval> days,
                                      std::span<const DailyBar> bars);

}  // namespace elmworth
