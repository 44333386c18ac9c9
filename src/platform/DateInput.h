// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Calendar.h"
#include "platform/Locale.h"

namespace elmworth {

/// What a part of a date or time stands for.
enum class DatePart { year, month, day, hour, minute, dayPeriod };

/// Where a part stands in a text, in UTF-16 units: from `begin` to before `end`.
struct DatePartSpan {
    DatePart part;
    int begin;
    int end;

    friend bool operator==(const DatePartSpan&, const DatePartSpan&) = default;
};

/// How the people of a locale type a day. Of `DateComponents` only year, month and day are looked
/// at and given; they are of the locale's own calendar.
class DateInput {
 public:
    explicit DateInput(const Locale& locale);
    DateInput(DateInput&& other) noexcept;
    DateInput& operator=(DateInput&& other) noexcept;
    ~DateInput();

    /// `day` in the locale's short form with the year in full: "3/2/2026", "02.03.2026". Requires
    /// a day of the calendar.
    [[nodiscard]] std::string text(const DateComponents& day) const;

    /// Where the parts of `text(day)` stand, from left to right.
    [[nodiscard]] std::vector<DatePartSpan> parts(const DateComponents& day) const;

    /// The day that `typed` means: numbers in the locale's order or with the year first, with any
    /// separators and in any script's digits; or the locale's names of months with a day and a
    /// year. What is left out is taken from `reference`: the year, or month and year. A year of two
    /// digits lies from 79 years before the one of `reference` to 20 after it. A year in front with
    /// dashes is one of the Gregorian calendar, unless the locale writes its own calendar's days
    /// so. Absent for everything else.
    [[nodiscard]] std::optional<DateComponents> day(std::string_view typed,
                                                    const DateComponents& reference) const;

 private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace elmworth
