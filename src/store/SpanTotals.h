// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "store/PersistentID.h"

namespace elmworth {

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

/// The sums that a library holds, for the owners that were asked for, in microseconds.
struct SpanTotals {
    SpanFields fields;
    std::unordered_map<PersistentID, double> byOwner = {};
};

}  // namespace elmworth
