// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Instant.h"

namespace elmworth {

/// The first and the last instant that a text of this form can stand for: the years 0000 to 9999 in
/// UTC.
inline constexpr Instant earliestISO8601 = std::chrono::sys_days{std::chrono::year{0} / 1 / 1};
inline constexpr Instant latestISO8601 = std::chrono::sys_days{std::chrono::year{9999} / 12 / 31} +
                                         std::chrono::days{1} - Instant::duration{1};

[[nodiscard]] constexpr bool hasISO8601(Instant instant) noexcept {
    return instant >= earliestISO8601 && instant <= latestISO8601;
}

/// `instant`, or the end of that range that is nearest to it.
[[nodiscard]] constexpr Instant clampedToISO8601(Instant instant) noexcept {
    return std::clamp(instant, earliestISO8601, latestISO8601);
}

/// `instant` as an internet date-time (RFC 3339) in UTC with whole seconds, rounded down:
/// "2026-03-01T09:30:00Z".
[[nodiscard]] std::string formatISO8601(Instant instant);

/// The same at `secondsFromUTC` east of UTC, with the offset: "2026-03-01T10:30:00+01:00".
[[nodiscard]] std::string formatISO8601(Instant instant, int secondsFromUTC);

/// Reads exactly yyyy-MM-ddTHH:mm:ss followed by "Z" or an offset ±HH:mm. Absent for anything else:
/// a fraction, a missing offset, a date alone, a day that its month lacks, an hour of 24 or more,
/// an instant outside the years 0000 to 9999 in UTC, which could not be written again.
[[nodiscard]] std::optional<Instant> parseISO8601(std::string_view text);

}  // namespace elmworth
