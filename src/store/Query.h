// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "store/Predicate.h"

namespace elmworth {

enum class SortOrder { forward, reverse };

/// How texts are compared: by code points, or as `localizedStandardCompare` does.
enum class SortComparison { plain, localizedStandard };

struct SortKey {
    std::size_t field = 0;
    SortOrder order = SortOrder::forward;
    SortComparison comparison = SortComparison::plain;
};

/// Sorts by the field `Member`; absent values come first in forward order.
template <auto Member>
[[nodiscard]] SortKey sortedBy(SortOrder order = SortOrder::forward,
                               SortComparison comparison = SortComparison::plain) {
    return {KeyPath<Member>::index(), order, comparison};
}

/// Which records of type `T` to fetch, and in which order. Records that are equal in all sort keys,
/// and all of them where there is none, stand in the order of their creation (the reverse of it
/// where the last sort key is in reverse).
template <class T>
struct Query {
    std::optional<Predicate<T>> predicate = std::nullopt;
    std::vector<SortKey> sortBy = {};
    std::optional<std::size_t> fetchLimit = std::nullopt;
};

}  // namespace elmworth
