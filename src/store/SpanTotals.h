// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <functional>
#include <unordered_map>
#include <vector>

#include "store/PersistentID.h"

namespace elmworth {

class PendingRecords;
struct RecordSchema;

/// Spans of time that records take, summed for the record that they point to: the positions of the
/// fields in `schema`. A record counts when it has both instants.
struct SpanFields {
    const RecordSchema* schema;
    std::size_t owner;  ///< a to-one relationship
    std::size_t since;  ///< an instant
    std::size_t until;  ///< an instant

    friend bool operator==(const SpanFields&, const SpanFields&) = default;
};

/// The sums that a library holds, for the owners that were asked for.
class SpanTotals {
 public:
    /// The sum over `stored` rows and `pending` records, in microseconds. `stored` is asked for the
    /// first time alone.
    [[nodiscard]] double total(const SpanFields& fields, const PersistentID& owner,
                               const PendingRecords& pending,
                               const std::function<double()>& stored);

    /// Adds to the sums of the stored rows what is about to be no longer pending.
    void carry(const PendingRecords& pending);

    void forget() noexcept { sums_.clear(); }

 private:
    struct Sums {
        SpanFields fields;
        std::unordered_map<PersistentID, double> byOwner = {};  ///< in microseconds
    };

    std::vector<Sums> sums_;
};

}  // namespace elmworth
