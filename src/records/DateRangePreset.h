// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/Calendar.h"

namespace elmworth {

/// The periods that people choose from, in the order of the menus.
enum class DateRangePreset {
    today,
    yesterday,
    thisWeek,
    lastWeek,
    thisMonth,
    lastMonth,
    thisYear,
    custom,
};

inline constexpr std::array allDateRangePresets{
    DateRangePreset::today,    DateRangePreset::yesterday, DateRangePreset::thisWeek,
    DateRangePreset::lastWeek, DateRangePreset::thisMonth, DateRangePreset::lastMonth,
    DateRangePreset::thisYear, DateRangePreset::custom,
};

/// The label in menus and the stored form: "This Week".
[[nodiscard]] std::string_view rawValue(DateRangePreset preset) noexcept;
/// The preset of exactly that raw value.
[[nodiscard]] std::optional<DateRangePreset> dateRangePresetFromRawValue(
    std::string_view raw) noexcept;

/// The span of `preset` at the instant `now`. Absent for `custom`, and where the calendar has no
/// such date.
[[nodiscard]] std::optional<DateInterval> interval(DateRangePreset preset, Instant now,
                                                   const Calendar& calendar);

/// From the start of the day of the earlier of `from` and `to` to the end of the day of the later.
[[nodiscard]] DateInterval customInterval(Instant from, Instant to, const Calendar& calendar);

/// What a span of time contributes to one day.
struct DaySlice {
    Instant day;  ///< the start of the day
    double seconds = 0;

    friend bool operator==(const DaySlice&, const DaySlice&) = default;
};

/// Cuts the span from `start` to `end` at the calendar's day boundaries, in order of the days.
/// Empty when `end` is not after `start`. The seconds of the slices add up to the span's.
[[nodiscard]] std::vector<DaySlice> splitByDay(Instant start, Instant end,
                                               const Calendar& calendar);

/// The same for many spans: `known` is the day that the last one ended in, absent at first, for
/// which the calendar is not asked again.
[[nodiscard]] std::vector<DaySlice> splitByDay(Instant start, Instant end, const Calendar& calendar,
                                               std::optional<DateInterval>& known);

}  // namespace elmworth
