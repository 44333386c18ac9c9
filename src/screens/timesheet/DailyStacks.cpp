// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/DailyStacks.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <tuple>
#include <unordered_map>
#include <unordered_set>

#include "records/Client.h"
#include "records/DateRangePreset.h"

namespace elmworth {

namespace {

using HoursByKey = std::unordered_map<DayKey, double>;

/// Adds the hours of entries up, with each project's label made once.
class HoursSum {
 public:
    HoursSum(std::span<const TimesheetEntry> entries, const DateInterval& period,
             const Calendar& calendar)
        : nameCounts_(nameCounts(entries)), period_(period), cutter_(calendar) {}

    /// What lies outside of the period is left out without being cut, or an entry of thirty years
    /// would take long.
    void add(const Project* project, Instant start, Instant end) {
        cutter_.cut(std::max(start, period_.start), std::min(end, period_.end),
                    [&](const DateInterval& day, double seconds) {
                        hours(project, day.start) += seconds / 3600.0;
                    });
    }

    [[nodiscard]] const HoursByKey& hours() const noexcept { return hours_; }

 private:
    double& hours(const Project* project, Instant day) {
        const auto [series, isNew] = series_.try_emplace(project);
        if (isNew) {
            series->second = {seriesLabel(project, nameCounts_),
                              project ? project->colorHex.get() : NoProject::color};
        }
        return hours_[{day, series->second.label, series->second.colorHex}];
    }

    NameCounts nameCounts_;
    DateInterval period_;
    DayCutter cutter_;
    std::unordered_map<const Project*, DailySeries> series_;
    HoursByKey hours_;
};

auto orderOf(const DailyBar& bar) {
    return std::tie(bar.project, bar.day, bar.colorHex);
}

constexpr double mostSteps = 5;

/// Within a day by the parts of a day, above it by decimal numbers.
double stepFor(double highest) {
    for (const double step : {1, 2, 4, 6, 12, 24}) {
        if (highest <= step * mostSteps) return step;
    }
    for (double decade = 10;; decade *= 10) {
        for (const double factor : {5, 10, 20}) {
            if (highest <= factor * decade * mostSteps) return factor * decade;
        }
    }
}

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

NameCounts nameCounts(std::span<const TimesheetEntry> entries) {
    NameCounts counts;
    std::unordered_set<PersistentID> seen;
    for (const auto& entry : entries) {
        const auto& project = entry.project;
        if (project && seen.insert(project->id()).second) ++counts[project->name];
    }
    return counts;
}

std::string seriesLabel(const Project* project, const NameCounts& nameCounts) {
    if (project == nullptr) return NoProject::chartName;
    const std::string& name = project->name;
    const auto count = nameCounts.find(name);
    if (count == nameCounts.end() || count->second < 2) return name;
    const auto& client = project->client.get();
    return name + " — " + (client ? client->name.get() : "");
}

std::vector<DateInterval> daysOf(const DateInterval& range, const Calendar& calendar) {
    std::vector<DateInterval> days;
    DayCutter(calendar).cut(range.start, range.end, [&](const DateInterval& day, double) {
        if (day.start >= range.start) days.push_back(day);
    });
    return days;
}

std::vector<DailyBar> dailyBars(std::span<const TimesheetEntry> entries,
                                const std::vector<DateInterval>& days, Instant now,
                                const Calendar& calendar) {
    if (days.empty()) return {};
    HoursSum sum(entries, {days.front().start, days.back().end}, calendar);
    for (const auto& entry : entries) {
        sum.add(entry.project.get(), entry.start, entry.end.value_or(now));
    }
    std::vector<DailyBar> bars;
    bars.reserve(sum.hours().size());
    for (const auto& [key, hours] : sum.hours()) {
        bars.push_back({key.day, key.project, key.colorHex, hours});
    }
    std::sort(bars.begin(), bars.end(),
              [](const DailyBar& a, const DailyBar& b) { return orderOf(a) < orderOf(b); });
    return bars;
}

std::vector<DailySeries> colorScale(std::span<const DailyBar> bars) {
    std::map<std::string, std::string> colors;
    for (const auto& bar : bars) colors.try_emplace(bar.project, bar.colorHex);
    std::vector<DailySeries> scale;
    scale.reserve(colors.size());
    for (auto& [label, colorHex] : colors) scale.push_back({label, colorHex});
    return scale;
}

std::vector<HourMark> hourMarks(double highest) {
    const double top = std::isfinite(highest) && highest > 0 ? highest : 1;
    const double step = stepFor(top);
    std::vector<HourMark> marks;
    const int count = static_cast<int>(std::ceil(top / step));
    for (int i = 0; i <= count; ++i) {
        marks.push_back({i * step, std::to_string(static_cast<std::int64_t>(i * step)) + "h"});
    }
    return marks;
}

std::span<const StackedBar> DailyStacks::barsOf(std::size_t column) const {
    const auto first = std::lower_bound(
        bars.begin(), bars.end(), column,
        [](const StackedBar& bar, std::size_t position) { return bar.column < position; });
    const auto last =
        std::find_if(first, bars.end(), [&](const auto& bar) { return bar.column != column; });
    return {first, last};
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

std::size_t std::hash<elmworth::DayKey>::operator()(const elmworth::DayKey& key) const noexcept {
    const auto text = std::hash<std::string>{};
    const auto day = static_cast<std::size_t>(key.day.time_since_epoch().count());
    return day * 31 + text(key.project) * 17 + text(key.colorHex);
}
