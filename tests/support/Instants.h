// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <string>

#include "platform/Instant.h"

namespace elmworth::test {

/// The instant of "2026-03-29T02:30+01:00", "2026-03-29T02:30:15Z" or the like.
inline Instant at(const std::string& text) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0, length = 0;
    const char* rest = text.c_str();
    if (std::sscanf(rest, "%d-%d-%dT%d:%d%n", &year, &month, &day, &hour, &minute, &length) != 5)
        throw std::invalid_argument(text);
    rest += length;
    if (*rest == ':') {
        std::sscanf(rest, ":%d%n", &second, &length);
        rest += length;
    }
    int offsetHours = 0, offsetMinutes = 0;
    if (*rest != 'Z' && std::sscanf(rest + 1, "%d:%d", &offsetHours, &offsetMinutes) != 2)
        throw std::invalid_argument(text);
    const int offset = (offsetHours * 60 + offsetMinutes) * (*rest == '-' ? -1 : 1);
    using namespace std::chrono;
    const sys_days date(std::chrono::year(year) / month / day);
    return date + hours(hour) + minutes(minute - offset) + seconds(second);
}

/// `instant` moved by `seconds`, rounded to the microsecond.
inline Instant moved(Instant instant, double seconds) {
    return instant + std::chrono::round<Instant::duration>(std::chrono::duration<double>(seconds));
}

/// "2026-03-29T01:30:00Z", with microseconds where there are any: what a failed test shows.
inline std::string iso(Instant instant) {
    using namespace std::chrono;
    const auto midnight = floor<days>(instant);
    const year_month_day date(midnight);
    const hh_mm_ss time(instant - midnight);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    const auto fraction = time.subseconds().count();
    return text +
           (fraction == 0 ? "Z" : "." + std::to_string(1'000'000 + fraction).substr(1) + "Z");
}

}  // namespace elmworth::test
