// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/Predicate.h"

#include <algorithm>

namespace elmworth {

namespace {

bool compareValues(PredicateNode::Kind kind, const Value& left, const Value& right) {
    using Kind = PredicateNode::Kind;
    if (kind == Kind::equal) return left == right;
    if (kind == Kind::notEqual) return left != right;
    if (left.index() != right.index()) return false;  // absent is neither less nor greater

    const auto ordered = [&](auto compare) {
        return std::visit(
            [&](const auto& value) {
                using T = std::decay_t<decltype(value)>;
                if constexpr (std::is_same_v<T, std::monostate>)
                    return false;
                else if constexpr (std::is_same_v<T, Blob>)
                    return compare(value.bytes, std::get<T>(right).bytes);
                else
                    return compare(value, std::get<T>(right));
            },
            left);
    };
    switch (kind) {
        case Kind::less:
            return ordered([](const auto& a, const auto& b) { return a < b; });
        case Kind::lessOrEqual:
            return ordered([](const auto& a, const auto& b) { return a <= b; });
        case Kind::greater:
            return ordered([](const auto& a, const auto& b) { return a > b; });
        default:
            return ordered([](const auto& a, const auto& b) { return a >= b; });
    }
}

}  // namespace

bool PredicateNode::matches(const RecordSchema& schema, const Record& record) const {
    const auto matchesOperand = [&](const auto& operand) {
        return operand->matches(schema, record);
    };
    switch (kind) {
        case Kind::both:
            return std::all_of(operands.begin(), operands.end(), matchesOperand);
        case Kind::either:
            return std::any_of(operands.begin(), operands.end(), matchesOperand);
        case Kind::negated:
            return !operands.front()->matches(schema, record);
        default:
            return compareValues(kind, schema.fields[field].read(record), value);
    }
}

}  // namespace elmworth
