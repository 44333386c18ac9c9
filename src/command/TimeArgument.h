// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

#include "command/CommandEnvironment.h"

namespace elmworth {

/// Reads a TIME: HH:mm today, yyyy-MM-ddTHH:mm[:ss] in local time, or an ISO 8601 instant with an
/// offset, with or without seconds. A wall-clock time that a time-zone change skips means the next
/// valid one. Throws CommandError (usage).
[[nodiscard]] Instant parseTime(const std::string& text, const CommandEnvironment& environment);

/// Whether a TIME that can be read names no day, and so means today.
[[nodiscard]] bool isTimeOfToday(const std::string& text);

/// Reads a DAY, yyyy-MM-dd, as the start of that local day. Throws CommandError (usage).
[[nodiscard]] Instant parseDay(const std::string& text, const CommandEnvironment& environment);

/// The names of all periods: "“Today”, “Yesterday” …".
[[nodiscard]] std::string periodNames();

/// The period that --period, or --from and --through, name. Throws CommandError (usage) unless
/// exactly one of the two ways was used in full.
struct PeriodArguments {
    std::string period;
    std::string from;
    std::string through;

    [[nodiscard]] bool isEmpty() const { return period.empty() && from.empty() && through.empty(); }
    [[nodiscard]] DateInterval interval(const CommandEnvironment& environment) const;
};

}  // namespace elmworth
