// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "store/Schema.h"

namespace elmworth {

/// A condition on the fields of one record. An absent value is not less or greater than anything
/// and differs from every present one.
struct PredicateNode {
    enum class Kind {
        equal,
        notEqual,
        less,
        lessOrEqual,
        greater,
        greaterOrEqual,
        both,
        either,
        negated
    };

    Kind kind;
    std::size_t field = 0;  ///< for comparisons
    Value value;            ///< for comparisons; absent only with equal and notEqual
    std::vector<std::shared_ptr<const PredicateNode>> operands;

    /// Whether the values that `record` has now meet the condition.
    [[nodiscard]] bool matches(const RecordSchema& schema, const Record& record) const;
};

/// A condition on records of type `T`: comparisons of `key<&T::field>()` joined by &&, || and !.
template <class T>
class Predicate {
 public:
    explicit Predicate(PredicateNode node)
        : node_(std::make_shared<const PredicateNode>(std::move(node))) {}

    [[nodiscard]] const std::shared_ptr<const PredicateNode>& node() const noexcept {
        return node_;
    }

    friend Predicate operator&&(const Predicate& a, const Predicate& b) {
        return join(PredicateNode::Kind::both, {a.node_, b.node_});
    }
    friend Predicate operator||(const Predicate& a, const Predicate& b) {
        return join(PredicateNode::Kind::either, {a.node_, b.node_});
    }
    friend Predicate operator!(const Predicate& a) {
        return join(PredicateNode::Kind::negated, {a.node_});
    }

 private:
    static Predicate join(PredicateNode::Kind kind,
                          std::vector<std::shared_ptr<const PredicateNode>> operands) {
        return Predicate(PredicateNode{kind, 0, {}, std::move(operands)});
    }

    std::shared_ptr<const PredicateNode> node_;
};

/// Stands for "no value" in predicates.
struct Absent {};
inline constexpr Absent absent;

/// The path to a field, to be compared in a predicate or sorted by.
template <auto Member>
class KeyPath {
 public:
    using RecordType = typename detail::MemberPointer<decltype(Member)>::RecordType;
    using Field = typename detail::MemberPointer<decltype(Member)>::FieldType;
    using Kind = PredicateNode::Kind;

    /// The field's position in the schema.
    [[nodiscard]] static std::size_t index() {
        const auto fields = RecordType::schema().fields;
        std::size_t i = 0;
        while (fields[i].read != &detail::readField<Member>) ++i;
        return i;
    }

    template <class V>
    friend Predicate<RecordType> operator==(KeyPath, const V& value) {
        return compare(Kind::equal, valueOf(value));
    }
    template <class V>
    friend Predicate<RecordType> operator!=(KeyPath, const V& value) {
        return compare(Kind::notEqual, valueOf(value));
    }
    template <class V>
    friend Predicate<RecordType> operator<(KeyPath, const V& value) {
        return compare(Kind::less, valueOf(value));
    }
    template <class V>
    friend Predicate<RecordType> operator<=(KeyPath, const V& value) {
        return compare(Kind::lessOrEqual, valueOf(value));
    }
    template <class V>
    friend Predicate<RecordType> operator>(KeyPath, const V& value) {
        return compare(Kind::greater, valueOf(value));
    }
    template <class V>
    friend Predicate<RecordType> operator>=(KeyPath, const V& value) {
        return compare(Kind::greaterOrEqual, valueOf(value));
    }

 private:
    static Predicate<RecordType> compare(Kind kind, Value value) {
        return Predicate<RecordType>(PredicateNode{kind, index(), std::move(value), {}});
    }

    static Value valueOf(Absent /*absent*/) { return {}; }
    template <class V>
    static Value valueOf(const V& value) {
        if constexpr (requires { value->id(); }) {
            return value ? Value{value->id()} : Value{};
        } else {
            return FieldTraits<typename Field::ValueType>::toValue(value);
        }
    }
};

template <auto Member>
[[nodiscard]] constexpr KeyPath<Member> key() {
    return {};
}

}  // namespace elmworth
