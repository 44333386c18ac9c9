// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/RecordOrder.h"

#include "platform/Collator.h"

namespace elmworth {

namespace {

int compareByCodePoints(const Value& a, const Value& b) {
    if (a.index() != b.index()) return a.index() < b.index() ? -1 : 1;  // absent comes first
    return std::visit(
        [&](const auto& left) {
            using T = std::decay_t<decltype(left)>;
            const auto& right = std::get<T>(b);
            if constexpr (std::is_same_v<T, std::monostate>)
                return 0;
            else if constexpr (std::is_same_v<T, Blob>)
                return left.bytes.compare(right.bytes);
            else
                return left < right ? -1 : (right < left ? 1 : 0);
        },
        a);
}

int compare(const Value& a, const Value& b, SortComparison comparison) {
    const auto* left = std::get_if<std::string>(&a);
    const auto* right = std::get_if<std::string>(&b);
    if (comparison == SortComparison::localizedStandard && left && right) {
        return localizedStandardCompare(*left, *right);
    }
    return compareByCodePoints(a, b);
}

}  // namespace

bool RecordOrder::precedes(const Record& a, const Record& b) const {
    for (const auto& key : keys_) {
        const auto& field = schema_.fields[key.field];
        const int result = compare(field.read(a), field.read(b), key.comparison);
        if (result != 0) return key.order == SortOrder::forward ? result < 0 : result > 0;
    }
    const bool reverse = !keys_.empty() && keys_.back().order == SortOrder::reverse;
    return reverse ? b.id() < a.id() : a.id() < b.id();
}

}  // namespace elmworth
