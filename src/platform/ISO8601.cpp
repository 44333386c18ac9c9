// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ISO8601.h"

#include <array>
#include <chrono>
#include <cstdio>

namespace elmworth {

namespace {

using namespace std::chrono;

/// The number that exactly `length` ASCII digits at `position` form.
std::optional<int> digits(std::string_view text, std::size_t position, std::size_t length) {
    int number = 0;
    for (std::size_t i = position; i < position + length; ++i) {
        if (text[i] < '0' || text[i] > '9') return std::nullopt;
        number = number * 10 + (text[i] - '0');
    }
    return number;
}

std::optional<seconds> parseOffset(std::string_view text) {
    if (text == "Z") return seconds{0};
    if (text.size() != 6 || (text[0] != '+' && text[0] != '-') || text[3] != ':') return {};
    const auto hour = digits(text, 1, 2);
    const auto minute = digits(text, 4, 2);
    if (!hour || !minute || *hour > 23 || *minute > 59) return std::nullopt;
    const seconds offset = hours{*hour} + minutes{*minute};
    return text[0] == '-' ? -offset : offset;
}

}  // namespace

std::string formatISO8601(Instant instant, int secondsFromUTC) {
    // The offset has no seconds, as zones had before 1900, and the text must mean this instant.
    const minutes offset = duration_cast<minutes>(seconds{secondsFromUTC});
    const auto local = floor<seconds>(instant) + offset;
    const auto midnight = floor<days>(local);
    const year_month_day date{midnight};
    const hh_mm_ss time{local - midnight};
    std::array<char, 64> text{};
    const int length = std::snprintf(
        text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d", static_cast<int>(date.year()),
        static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
        static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
        static_cast<int>(time.seconds().count()));
    std::string result(text.data(), static_cast<std::size_t>(length));
    const auto magnitude = static_cast<int>(abs(offset).count());
    std::snprintf(text.data(), text.size(), "%c%02d:%02d", offset < minutes{0} ? '-' : '+',
                  magnitude / 60, magnitude % 60);
    return result + text.data();
}

std::string formatISO8601(Instant instant) {
    const std::string withOffset = formatISO8601(instant, 0);
    return withOffset.substr(0, withOffset.size() - 6) + 'Z';
}

std::optional<Instant> parseISO8601(std::string_view text) {
    if (text.size() < 20 || text[4] != '-' || text[7] != '-' || text[10] != 'T' ||
        text[13] != ':' || text[16] != ':') {
        return std::nullopt;
    }
    const auto yearNumber = digits(text, 0, 4);
    const auto monthNumber = digits(text, 5, 2);
    const auto dayNumber = digits(text, 8, 2);
    const auto hour = digits(text, 11, 2);
    const auto minute = digits(text, 14, 2);
    const auto second = digits(text, 17, 2);
    const auto offset = parseOffset(text.substr(19));
    if (!yearNumber || !monthNumber || !dayNumber || !hour || !minute || !second || !offset) {
        return std::nullopt;
    }
    const year_month_day date{year{*yearNumber}, month{static_cast<unsigned>(*monthNumber)},
                              day{static_cast<unsigned>(*dayNumber)}};
    if (!date.ok() || *hour > 23 || *minute > 59 || *second > 59) return std::nullopt;
    // An offset can carry the first and the last day out of the years that have a text.
    const Instant instant =
        sys_days{date} + hours{*hour} + minutes{*minute} + seconds{*second} - *offset;
    return hasISO8601(instant) ? std::optional(instant) : std::nullopt;
}

}  // namespace elmworth
