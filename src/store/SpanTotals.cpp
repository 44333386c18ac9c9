// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/SpanTotals.h"

#include <algorithm>

#include "store/PendingRecords.h"

namespace elmworth {

double SpanTotals::total(const SpanFields& fields, const PersistentID& owner,
                         const PendingRecords& pending, const std::function<double()>& stored) {
    auto kept = std::find_if(sums_.begin(), sums_.end(),
                             [&](const auto& sums) { return sums.fields == fields; });
    if (kept == sums_.end()) kept = sums_.insert(kept, Sums{fields});
    auto known = kept->byOwner.find(owner);
    if (known == kept->byOwner.end()) known = kept->byOwner.emplace(owner, stored()).first;
    double total = known->second;
    pending.forEachSpan(fields, [&](const PersistentID& other, double span) {
        if (other == owner) total += span;
    });
    return total;
}

void SpanTotals::carry(const PendingRecords& pending) {
    for (auto& sums : sums_) {
        pending.forEachSpan(sums.fields, [&](const PersistentID& owner, double span) {
            const auto known = sums.byOwner.find(owner);
            if (known != sums.byOwner.end()) known->second += span;
        });
    }
}

}  // namespace elmworth
