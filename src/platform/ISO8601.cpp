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

/// `number` is below 100.
void appendTwoDigits(std::string& text, unsigned number) {
    text += static_cast<char>('0' + number / 10);
    text += static_cast<char>('0' + number % 10);
}

/// At least four digits, and a sign where there must be one.
void appendYear(std::string& text, int year) {
    if (year < 0 || year > 9999) {
        std::array<char, 16> digits{};
        std::snprintf(digits.data(), digits.size(), "%04d", year);
        text += digits.data();
        return;
    }
    appendTwoDigits(text, static_cast<unsigned>(year) / 100);
    appendTwoDigits(text, static_cast<unsigned>(year) % 100);
}

std::string dateAndTime(sys_seconds local) {
    const auto midnight = floor<days>(local);
    const year_month_day date{midnight};
    const auto second = static_cast<unsigned>((local - midnight).count());
    std::string text;
    text.reserve(32);
    appendYear(text, static_cast<int>(date.year()));
    text += '-';
    appendTwoDigits(text, static_cast<unsigned>(date.month()));
    text += '-';
    appendTwoDigits(text, static_cast<unsigned>(date.day()));
    text += 'T';
    appendTwoDigits(text, second / 3600);
    text += ':';
    appendTwoDigits(text, second / 60 % 60);
    text += ':';
    appendTwoDigits(text, second % 60);
    return text;
}

}  // namespace

std::string formatISO8601(Instant instant, int secondsFromUTC) {
    // The offset has no seconds, as zones had before 1900, and the text must mean this instant.
    const minutes offset = duration_cast<minutes>(seconds{secondsFromUTC});
    std::string text = dateAndTime(floor<seconds>(instant) + offset);
    const auto magnitude = static_cast<unsigned>(abs(offset).count());
    text += offset < minutes{0} ? '-' : '+';
    appendTwoDigits(text, magnitude / 60);
    text += ':';
    appendTwoDigits(text, magnitude % 60);
    return text;
}

std::string formatISO8601(Instant instant) {
    return dateAndTime(floor<seconds>(instant)) + 'Z';
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
