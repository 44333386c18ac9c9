// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <unordered_map>

#include "invoicing/InvoiceCalculator.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// Finished time that is on no invoice. `cents` prices the entries one by one at full length,
/// before an invoice's rounding: an estimate, which stays at the limits of 64 bits.
struct UnbilledTime {
    double seconds = 0;
    std::int64_t cents = 0;

    UnbilledTime& operator+=(const UnbilledTime& other) {
        seconds += other.seconds;
        cents = InvoiceCalculator::limitedSum(cents, other.cents);
        return *this;
    }
};

/// The unbilled time of each project that has any, by the project's identity. Throws StoreError.
[[nodiscard]] std::unordered_map<PersistentID, UnbilledTime> unbilledTimeByProject(
    UnitOfWork& context);

}  // namespace elmworth
