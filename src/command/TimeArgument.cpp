// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/TimeArgument.h"

#include <optional>

#include "command/CommandError.h"
#include "platform/ISO8601.h"
#include "platform/Text.h"
#include "records/DateRangePreset.h"

namespace elmworth {

namespace {

[[noreturn]] void refuse(const std::string& message) {
    throw CommandError(message, CommandError::Kind::usage);
}

/// Days on the command line are of the Gregorian calendar, whatever the user's own is.
Calendar isoCalendar(const CommandEnvironment& environment) {
    return {Locale("en_US"), environment.calendar.zoneID()};
}

/// The fields of exactly yyyy-MM-ddTHH:mm:ss. A day that its month lacks is refused.
std::optional<DateComponents> readFields(const std::string& text) {
    // Calendars count the years before the first one backwards.
    constexpr Instant yearOne = std::chrono::sys_days{std::chrono::year{1} / 1 / 1};
    const auto instant = parseISO8601(text + "Z");
    if (!instant || *instant < yearOne) return std::nullopt;
    return Calendar(Locale("en_US"), "UTC").components(*instant);
}

std::optional<Instant> localTime(const std::string& text, const CommandEnvironment& environment) {
    const auto fields = readFields(text);
    const auto instant = fields ? isoCalendar(environment).date(*fields) : std::nullopt;
    return instant && hasISO8601(*instant) ? instant : std::nullopt;
}

/// An instant with an offset may leave its seconds out.
std::string withSeconds(const std::string& text) {
    constexpr std::size_t offset = 16;
    const bool hasNone = text.size() > offset && text[offset] != ':';
    return hasNone ? text.substr(0, offset) + ":00" + text.substr(offset) : text;
}

std::string today(const CommandEnvironment& environment) {
    const Instant now = environment.now();
    return formatISO8601(now, environment.calendar.secondsFromUTC(now)).substr(0, 10);
}

std::optional<DateRangePreset> findPreset(const std::string& name) {
    for (const auto preset : allDateRangePresets) {
        if (preset != DateRangePreset::custom && caseFolded(rawValue(preset)) == caseFolded(name)) {
            return preset;
        }
    }
    return std::nullopt;
}

}  // namespace

std::string periodNames() {
    std::string names;
    for (const auto preset : allDateRangePresets) {
        if (preset == DateRangePreset::custom) continue;
        names += (names.empty() ? "“" : ", “") + std::string(rawValue(preset)) + "”";
    }
    return names;
}

bool isTimeOfToday(const std::string& text) {
    return text.size() <= 5;  // 9:30
}

Instant parseTime(const std::string& text, const CommandEnvironment& environment) {
    std::optional<Instant> instant = parseISO8601(withSeconds(text));
    const std::string clock = text.size() == 4 ? '0' + text : text;  // 9:30
    if (!instant && clock.size() == 5) {
        instant = localTime(today(environment) + 'T' + clock + ":00", environment);
    }
    if (!instant && text.size() == 16) instant = localTime(text + ":00", environment);
    if (!instant && text.size() == 19) instant = localTime(text, environment);
    if (!instant) {
        refuse("“" + text +
               "” is no time. Write 14:30, 2026-03-01T14:30 or 2026-03-01T14:30:00+01:00.");
    }
    return *instant;
}

Instant parseDay(const std::string& text, const CommandEnvironment& environment) {
    const auto instant =
        text.size() == 10 ? localTime(text + "T00:00:00", environment) : std::nullopt;
    if (!instant) refuse("“" + text + "” is no day. Write it like 2026-03-01.");
    return environment.calendar.startOfDay(*instant);
}

DateInterval PeriodArguments::interval(const CommandEnvironment& environment) const {
    const bool hasDays = !from.empty() || !through.empty();
    if (!period.empty() && hasDays) {
        refuse("Give either --period or --from and --through, not both.");
    }
    if (period.empty()) {
        if (from.empty() || through.empty()) {
            refuse("Give a period: --period, or --from and --through.");
        }
        return customInterval(parseDay(from, environment), parseDay(through, environment),
                              environment.calendar);
    }
    const auto preset = findPreset(period);
    if (!preset) refuse("“" + period + "” is no period. Choose one of " + periodNames() + ".");
    const auto found = elmworth::interval(*preset, environment.now(), environment.calendar);
    if (!found) refuse("The calendar has no “" + period + "” now.");
    return *found;
}

}  // namespace elmworth
