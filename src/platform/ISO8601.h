// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Instant.h"

namespace elmworth {

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
