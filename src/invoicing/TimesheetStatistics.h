// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/TimeEntry.h"
#include "platform/Calendar.h"

namespace elmworth {

/// The three figures over a timesheet. Only the part of an entry that lies in the period counts, a
/// running one up to now. Amounts are priced entry by entry, before an invoice's rounding.
struct TimesheetStatistics {
    double trackedSeconds = 0;
    double unbilledSeconds = 0;               ///< finished and on no invoice
    std::optional<std::string> currencyCode;  ///< absent when the entries have several
    std::int64_t billableCents = 0;           ///< all entries at their rates
    std::int64_t unbilledCents = 0;
};

[[nodiscard]] TimesheetStatistics timesheetStatistics(const std::vector<Ref<TimeEntry>>& entries,
                                                      const DateInterval& range, Instant now);

}  // namespace elmworth
