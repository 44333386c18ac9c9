// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

namespace elmworth {

/// How every duration reads that is shown in hours and minutes. Fractions of a second are cut off,
/// and a negative duration reads as none at all. Hours have no padding and no upper limit.
///
/// `seconds` is finite and fits 64 bits; anything else is a programming error and stops the
/// program.

/// "10:00" for 36,000 seconds, "0:59" for 3,599.
[[nodiscard]] std::string formatHoursMinutes(double seconds);

/// "10:00:00" for 36,000 seconds, "0:59:59" for 3,599.
[[nodiscard]] std::string formatHoursMinutesSeconds(double seconds);

/// A duration as decimal hours with two decimals and a point, in every locale: 5400 s reads "1.50".
[[nodiscard]] std::string formatDecimalHours(double seconds);

}  // namespace elmworth
