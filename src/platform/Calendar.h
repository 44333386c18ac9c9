// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Instant.h"
#include "platform/Locale.h"

namespace elmworth {

/// A span of time. The end is the first instant after it.
struct DateInterval {
    Instant start;
    Instant end;

    friend bool operator==(const DateInterval&, const DateInterval&) = default;
};

enum class CalendarUnit { day, weekOfYear, month, year };

/// The fields of a wall clock and calendar page. `month` counts from 1; `weekday` from 1 = Sunday.
struct DateComponents {
    int year = 0;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int weekday = 1;

    friend bool operator==(const DateComponents&, const DateComponents&) = default;
};

/// A calendar in a time zone: where days, weeks, months and years begin for this user.
///
/// Works on instants; days are calendar days of 23, 24, 25 or any other number of hours, and a day
/// that a time zone skipped does not exist. A wall-clock time that a time-zone change skips stands
/// for the next valid one, a repeated one for its first occurrence.
///
/// Copies are independent. One object is for one thread.
class Calendar {
 public:
    /// The calendar of `locale` in the IANA time zone `zoneID` ("Europe/Berlin"). An unknown zone
    /// counts as UTC.
    Calendar(const Locale& locale, std::string_view zoneID);

    /// The user's calendar: `Locale::current()` in the time zone of the environment (TZ, else the
    /// system's).
    [[nodiscard]] static Calendar current();

    Calendar(const Calendar& other);
    Calendar(Calendar&& other) noexcept;
    Calendar& operator=(const Calendar& other);
    Calendar& operator=(Calendar&& other) noexcept;
    ~Calendar();

    [[nodiscard]] const std::string& zoneID() const noexcept;

    /// The first instant of the calendar day that holds `instant`.
    [[nodiscard]] Instant startOfDay(Instant instant) const;

    /// `instant` moved by `value` calendar units at the same wall-clock time; a day that the target
    /// month lacks is clipped to its last. Absent when the calendar has no such date.
    [[nodiscard]] std::optional<Instant> adding(int value, CalendarUnit unit,
                                                Instant instant) const;

    /// The day, week, month or year that holds `instant`. Weeks begin on the locale's first
    /// weekday. Absent when the calendar has none.
    [[nodiscard]] std::optional<DateInterval> interval(CalendarUnit unit, Instant instant) const;

    /// The calendar fields of `instant`.
    [[nodiscard]] DateComponents components(Instant instant) const;

    /// The instant of year, month, day and wall-clock time in `components` (its weekday is not
    /// read). Absent when year, month and day are not of this calendar (a 31st of April, a day that
    /// the zone skipped) or the time is not on a clock.
    [[nodiscard]] std::optional<Instant> date(const DateComponents& components) const;

    /// The given wall-clock time on the day that holds `day`. Absent when it is not on a clock.
    [[nodiscard]] std::optional<Instant> settingTime(int hour, int minute, int second,
                                                     Instant day) const;

    /// Calendar days from the day of `from` to the day of `to`; negative when `to` is earlier. A
    /// day that the zone skipped is not counted.
    [[nodiscard]] int daysBetween(Instant from, Instant to) const;

    /// Seconds east of UTC that hold at `instant`.
    [[nodiscard]] int secondsFromUTC(Instant instant) const;

 private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace elmworth
