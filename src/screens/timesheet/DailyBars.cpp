// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/DailyBars.h"

#include <algorithm>
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

}  // namespace elmworth

std::size_t std::hash<elmworth::DayKey>::operator()(const elmworth::DayKey& key) const noexcept {
    const auto text = std::hash<std::string>{};
    const auto day = static_cast<std::size_t>(key.day.time_since_epoch().count());
    return day * 31 + text(key.project) * 17 + text(key.colorHex);
}
