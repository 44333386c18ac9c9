// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/DateRangePreset.h"

#include "platform/SystemLog.h"

namespace elmworth {
namespace {

/// What a preset means: the calendar unit that holds `now` moved by so many of it.
struct Period {
    CalendarUnit unit;
    int offset;
};

std::optional<Period> periodOf(DateRangePreset preset) {
    switch (preset) {
        case DateRangePreset::today:
            return Period{CalendarUnit::day, 0};
        case DateRangePreset::yesterday:
            return Period{CalendarUnit::day, -1};
        case DateRangePreset::thisWeek:
            return Period{CalendarUnit::weekOfYear, 0};
        case DateRangePreset::lastWeek:
            return Period{CalendarUnit::weekOfYear, -1};
        case DateRangePreset::thisMonth:
            return Period{CalendarUnit::month, 0};
        case DateRangePreset::lastMonth:
            return Period{CalendarUnit::month, -1};
        case DateRangePreset::thisYear:
            return Period{CalendarUnit::year, 0};
        case DateRangePreset::custom:
            break;
    }
    return std::nullopt;
}

Instant endOfDay(Instant instant, const Calendar& calendar) {
    const auto day = calendar.interval(CalendarUnit::day, instant);
    if (day) return day->end;
    fatalError("the calendar has no day after a date in use");
}

}  // namespace

std::string_view rawValue(DateRangePreset preset) noexcept {
    switch (preset) {
        case DateRangePreset::today:
            return "Today";
        case DateRangePreset::yesterday:
            return "Yesterday";
        case DateRangePreset::thisWeek:
            return "This Week";
        case DateRangePreset::lastWeek:
            return "Last Week";
        case DateRangePreset::thisMonth:
            return "This Month";
        case DateRangePreset::lastMonth:
            return "Last Month";
        case DateRangePreset::thisYear:
            return "This Year";
        case DateRangePreset::custom:
            return "Custom";
    }
    return "";
}

std::optional<DateRangePreset> dateRangePresetFromRawValue(std::string_view raw) noexcept {
    for (const DateRangePreset preset : allDateRangePresets)
        if (rawValue(preset) == raw) return preset;
    return std::nullopt;
}

std::optional<DateInterval> interval(DateRangePreset preset, Instant now,
                                     const Calendar& calendar) {
    const auto period = periodOf(preset);
    if (!period) return std::nullopt;
    const auto within = calendar.adding(period->offset, period->unit, now);
    return within ? calendar.interval(period->unit, *within) : std::nullopt;
}

DateInterval customInterval(Instant from, Instant to, const Calendar& calendar) {
    const auto [lower, upper] = std::minmax(from, to);
    return {calendar.startOfDay(lower), endOfDay(upper, calendar)};
}

}  // namespace elmworth
