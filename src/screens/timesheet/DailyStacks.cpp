// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/DailyStacks.h"

#include <algorithm>

namespace elmworth {

namespace {

std::size_t columnOf(Instant day, const std::vector<DateInterval>& days) {
    const auto found = std::lower_bound(
        days.begin(), days.end(), day,
        [](const DateInterval& interval, Instant start) { return interval.start < start; });
    return static_cast<std::size_t>(found - days.begin());
}

std::size_t seriesOf(const std::string& label, const std::vector<DailySeries>& series) {
    const auto found = std::lower_bound(
        series.begin(), series.end(), label,
        [](const DailySeries& one, const std::string& text) { return one.label < text; });
    return static_cast<std::size_t>(found - series.begin());
}

}  // namespace

std::span<const StackedBar> DailyStacks::barsOf(std::size_t column) const {
    const auto first = std::lower_bound(
        bars.begin(), bars.end(), column,
        [](const StackedBar& bar, std::size_t position) { return bar.column < position; });
    const auto last =
        std::find_if(first, bars.end(), [&](const auto& bar) { return bar.column != column; });
    return {first, last};
}

double DailyStacks::hoursOf(std::size_t column) const {
    const auto stack = barsOf(column);
    return stack.empty() ? 0 : stack.back().top;
}

DailyStacks dailyStacks(std::vector<DateInterval> days, std::span<const DailyBar> bars) {
    DailyStacks stacks{std::move(days), colorScale(bars), {}, {}};
    std::vector<double> heights(stacks.days.size(), 0);
    for (const auto& bar : bars) {
        const std::size_t column = columnOf(bar.day, stacks.days);
        double& height = heights[column];
        const double bottom = height;
        height += bar.hours;
        stacks.bars.push_back({column, seriesOf(bar.project, stacks.series), bottom, height});
    }
    std::stable_sort(stacks.bars.begin(), stacks.bars.end(),
                     [](const auto& a, const auto& b) { return a.column < b.column; });
    const auto highest = std::max_element(heights.begin(), heights.end());
    stacks.hourMarks = hourMarks(highest == heights.end() ? 0 : *highest);
    return stacks;
}

}  // namespace elmworth
