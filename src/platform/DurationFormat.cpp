// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DurationFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "platform/SystemLog.h"

namespace elmworth {
namespace {

std::int64_t wholeTotal(double seconds) {
    constexpr double limit = 9223372036854775808.0;  // 2^63, the first value that does not fit
    const bool fits = seconds >= -limit && seconds < limit;
    if (!fits) fatalError("a duration is not a number of seconds");  // not a number comes here too
    return std::max<std::int64_t>(0, static_cast<std::int64_t>(seconds));
}

/// Behind the unit above: a colon and two digits.
std::string sexagesimal(std::int64_t part) {
    return (part < 10 ? ":0" : ":") + std::to_string(part);
}

}  // namespace

std::string formatHoursMinutes(double seconds) {
    const std::int64_t total = wholeTotal(seconds);
    return std::to_string(total / 3600) + sexagesimal(total / 60 % 60);
}

std::string formatHoursMinutesSeconds(double seconds) {
    const std::int64_t total = wholeTotal(seconds);
    return formatHoursMinutes(seconds) + sexagesimal(total % 60);
}

std::string formatDecimalHours(double seconds) {
    std::array<char, 400> buffer{};  // the longest double has 309 digits before the point
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                      seconds / 3600.0, std::chars_format::fixed, 2);
    return {buffer.data(), result.ptr};
}

}  // namespace elmworth
