// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

#include "platform/Calendar.h"
#include "records/TimesheetEntry.h"

namespace elmworth {

/// The three figures over a timesheet. Only the part of an entry that lies in the period counts, a
/// running one up to now. Amounts are priced entry by entry, before an invoice's rounding; a sum
/// beyond 64 bits stays at their limit.
struct TimesheetStatistics {
    std::size_t entryCount = 0;
    double trackedSeconds = 0;
    double unbilledSeconds = 0;               ///< finished and on no invoice
    std::optional<std::string> currencyCode;  ///< absent when the entries have several
    std::int64_t billableCents = 0;           ///< all entries at their rates
    std::int64_t unbilledCents = 0;
};

/// Sums entries once, so that the figures of a later instant cost only what is running then,
/// however many entries there are.
class TimesheetSums {
 public:
    explicit TimesheetSums(const DateInterval& range) : range_(range) {}

    void add(const TimesheetEntry& entry);
    /// Adds the entries that `other` has summed over the same range.
    void add(const TimesheetSums& other);

    /// The figures at the instant `now`. Without entries they are zero in US dollars.
    [[nodiscard]] TimesheetStatistics statistics(Instant now) const;

    /// Whether the figures change with time.
    [[nodiscard]] bool hasRunning() const noexcept { return !running_.empty(); }

 private:
    struct Running {
        Instant start;
        std::int64_t rateCents = 0;
    };

    [[nodiscard]] std::optional<std::string> commonCurrency() const;
    void noteCurrency(const Project& project);

    DateInterval range_;
    TimesheetStatistics finished_;
    std::vector<Running> running_;
    std::unordered_set<PersistentID> projects_;
    std::set<std::string> currencyCodes_;
};

}  // namespace elmworth
