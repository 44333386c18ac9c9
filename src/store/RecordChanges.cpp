// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/RecordChanges.h"

namespace elmworth {

namespace {

using Kind = RecordChange::Kind;

constexpr std::uint32_t allFields = ~std::uint32_t{0};

/// Two consecutive changes of a record as one.
RecordChange joined(const RecordChange& first, const RecordChange& next) {
    if (next.kind == Kind::went) return next;
    if (next.kind == Kind::came) {
        return first.kind == Kind::went ? RecordChange{Kind::changed, allFields} : next;
    }
    if (first.kind == Kind::came) return first;
    return {Kind::changed, first.fields | next.fields};
}

}  // namespace

const RecordChanges::Named* RecordChanges::of(const RecordSchema& schema) const noexcept {
    static const Named none;
    if (schema.ordinal >= types_.size()) return &none;
    const auto& type = types_[schema.ordinal];
    return type.isTooLarge ? nullptr : &type.named;
}

void RecordChanges::note(const RecordSchema& schema, const PersistentID& id,
                         const RecordChange& change) {
    if (schema.ordinal >= types_.size()) types_.resize(schema.ordinal + 1);
    auto& type = types_[schema.ordinal];
    type.isTouched = true;
    if (type.isTooLarge) return;
    const auto [noted, isNew] = type.named.try_emplace(id, change);
    if (!isNew) noted->second = joined(noted->second, change);
    if (type.named.size() <= mostNamed) return;
    type.isTooLarge = true;
    type.named = {};
}

}  // namespace elmworth
