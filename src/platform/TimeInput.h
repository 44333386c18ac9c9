// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/DateInput.h"
#include "platform/Locale.h"

namespace elmworth {

/// A time on a clock: `hour` from 0 to 23, `minute` from 0 to 59.
struct ClockTime {
    int hour = 0;
    int minute = 0;

    friend bool operator==(const ClockTime&, const ClockTime&) = default;
};

/// How the people of a locale type a time of the day.
class TimeInput {
 public:
    explicit TimeInput(const Locale& locale);
    TimeInput(TimeInput&& other) noexcept;
    TimeInput& operator=(TimeInput&& other) noexcept;
    ~TimeInput();

    /// `time` in the locale's short form: "9:30 PM", "21:30".
    [[nodiscard]] std::string text(ClockTime time) const;

    /// Where the parts of `text(time)` stand, from left to right.
    [[nodiscard]] std::vector<DatePartSpan> parts(ClockTime time) const;

    /// The time that `typed` means: "9", "930", "9:30", "9.30", "21:30", "9pm", "9:30 a.m.", or the
    /// locale's own way, in any script's digits. Without a word for the half of the day it is read
    /// on the 24-hour clock in every locale. Absent for everything else.
    [[nodiscard]] std::optional<ClockTime> time(std::string_view typed) const;

 private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace elmworth
