// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What is read as a date is written and read again as the same instant, in the one strict form.

#include "fuzz/Property.h"
#include "platform/Calendar.h"
#include "platform/ISO8601.h"

using namespace elmworth;
using fuzz::require;

namespace {

int secondsFromUTC(std::string_view offset) {
    if (offset == "Z") return 0;
    const int seconds = ((offset[1] - '0') * 10 + offset[2] - '0') * 3600 +
                        ((offset[4] - '0') * 10 + offset[5] - '0') * 60;
    return offset[0] == '-' ? -seconds : seconds;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::textOf(data, size);
    const auto instant = parseISO8601(text);
    if (!instant) return 0;
    require(text.size() == 20 || text.size() == 25, "a date has its whole length");
    require(*instant == std::chrono::floor<std::chrono::seconds>(*instant), "seconds are whole");

    const std::string inUTC = formatISO8601(*instant);
    require(inUTC.size() == 20 && inUTC.back() == 'Z', "an instant has one form in UTC");
    require(parseISO8601(inUTC) == instant, "what is read is written and read as the same");
    const auto offset = text.substr(19);
    const std::string there = formatISO8601(*instant, secondsFromUTC(offset));
    require(there.substr(0, 19) == text.substr(0, 19), "at its offset a date reads as it was");
    require(parseISO8601(there) == instant, "at its offset a date means the same instant");

    static const Calendar utc(Locale("en_US"), "UTC");
    static const Calendar berlin(Locale("en_US"), "Europe/Berlin");
    (void)berlin.date(utc.components(*instant));
    return 0;
}
