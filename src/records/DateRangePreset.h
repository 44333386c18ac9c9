// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
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

/// How much of the span from `start` to `end` lies in `period`, in seconds.
[[nodiscard]] inline double secondsWithin(const DateInterval& period, Instant start, Instant end) {
    return std::max(0.0, secondsBetween(std::max(start, period.start), std::min(end, period.end)));
}

/// Cuts spans at the calendar's day boundaries. While they come day by day, the calendar is asked
/// once for each day.
class DayCutter {
 public:
    /// `calendar` outlives this.
    explicit DayCutter(const Calendar& calendar) : calendar_(calendar) {}

    /// Calls `visit(day, seconds)` for each day of the span in their order, with the whole day as
    /// an interval; for none when `end` is not after `start`. The seconds add up to the span's.
    template <class Visit>
    void cut(Instant start, Instant end, const Visit& visit) {
        if (end <= start) return;
        const bool isInLast = day_ && day_->start <= start && start < day_->end;
        if (!isInLast) day_ = calendar_.interval(CalendarUnit::day, start);
        while (day_ && day_->start < end) {
            const double seconds = secondsWithin(*day_, start, end);
            if (seconds > 0) visit(*day_, seconds);
            if (end <= day_->end) return;
            day_ = calendar_.interval(CalendarUnit::day, day_->end);
        }
    }

 private:
    const Calendar& calendar_;
    std::optional<DateInterval> day_;  ///< that the last span ended in
};

}  // namespace elmworth
