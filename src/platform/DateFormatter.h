// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/Instant.h"
#include "platform/Locale.h"

namespace elmworth {

/// Turns instants into a locale's own date and time texts (CLDR), in UTF-8.
class DateFormatter {
 public:
    enum class Style {
        mediumDate,       ///< "Mar 1, 2026", no time
        shortTime,        ///< "9:30 AM" or "09:30", no date
        monthDay,         ///< "Mar 1": abbreviated month and day
        weekday,          ///< "Monday"
        weekdayMonthDay,  ///< "Monday, Mar 1"
        shortWeekday,     ///< "Mon"
        fullDate,         ///< "Sunday, March 1, 2026"
        monthYear,        ///< "March 2026"
        dayOfMonth,       ///< "1", in the locale's digits
        weekdayInitials,  ///< "Su", as it stands over a calendar's column
    };

    DateFormatter(Style style, const Locale& locale, std::string_view zoneID);
    DateFormatter(DateFormatter&& other) noexcept;
    DateFormatter& operator=(DateFormatter&& other) noexcept;
    ~DateFormatter();

    [[nodiscard]] std::string string(Instant instant) const;

 private:
    [[nodiscard]] std::string format(Instant instant) const;

    struct Impl;
    std::unique_ptr<Impl> impl_;
};

/// "Mar 1, 2026" and "9:30 AM": the formatters that the screens share, made on first use in the
/// locale and time zone that are current then.
[[nodiscard]] const DateFormatter& mediumDateFormatter();
[[nodiscard]] const DateFormatter& shortTimeFormatter();

}  // namespace elmworth
