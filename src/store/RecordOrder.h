// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <span>

#include "store/Query.h"

namespace elmworth {

/// The order of a fetch, for records in memory: the sort keys, and then the order of creation.
class RecordOrder {
 public:
    RecordOrder(const RecordSchema& schema, std::span<const SortKey> keys)
        : schema_(schema), keys_(keys) {}

    /// Whether `a` stands before `b`.
    [[nodiscard]] bool precedes(const Record& a, const Record& b) const;

 private:
    const RecordSchema& schema_;
    std::span<const SortKey> keys_;
};

}  // namespace elmworth
