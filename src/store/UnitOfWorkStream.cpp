// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <limits>

#include "store/UnitOfWork.h"
#include "store/sqlite/RecordStore.h"

namespace elmworth {

void UnitOfWork::visitRecords(const RecordSchema& schema, const PredicateNode* predicate,
                              std::span<const SortKey> sortBy, std::optional<std::size_t> limit,
                              const std::function<void(const Record&)>& visit) {
    std::size_t left = limit.value_or(std::numeric_limits<std::size_t>::max());
    const auto visitNext = [&](const Record& record) {
        if (left == 0) return;
        --left;
        visit(record);
    };
    const RecordOrder order(schema, sortBy);
    const auto unsaved = unsavedMatches(schema, predicate, order);
    auto next = unsaved.begin();
    const auto lent = schema.make(PersistentID{});
    lent->context_ = this;  // its relationships lead on into the library
    lent->state_ = Record::State::clean;
    // Each unsaved record may take the place of one of the library's.
    const auto rowLimit = limit ? std::optional(*limit + pending(schema).size()) : std::nullopt;
    const auto lend = [&](const sqlite::Row& row) {
        lent->id_ = row.id();
        const auto known = existing(lent->id_);
        if (known && known->state_ != Record::State::clean)
            return;  // among the unsaved, or deleted
        if (!known) row.readInto(*lent, schema);
        const Record& record = known ? *known : *lent;
        while (next != unsaved.end() && order.precedes(**next, record)) visitNext(**next++);
        visitNext(record);
    };
    reading([&] { store_->select(schema, predicate, sortBy, rowLimit, lend); });
    while (next != unsaved.end()) visitNext(**next++);
}

void UnitOfWork::visitValues(const RecordSchema& schema, const PredicateNode* predicate,
                             std::span<const std::size_t> fields,
                             const std::function<void(const PersistentID&, const Value*)>& visit) {
    const auto& unsaved = pending(schema);
    const auto hand = [&](const PersistentID& id, const std::vector<Value>& values) {
        if (unsaved.empty() || !unsaved.contains(id)) visit(id, values.data());
    };
    reading([&] { store_->selectValues(schema, predicate, fields, hand); });
    std::vector<Value> values(fields.size());
    for (const auto& record : unsavedMatches(schema, predicate, RecordOrder(schema, {}))) {
        for (std::size_t i = 0; i < fields.size(); ++i) {
            values[i] = schema.fields[fields[i]].read(*record);
        }
        visit(record->id_, values.data());
    }
}

}  // namespace elmworth
