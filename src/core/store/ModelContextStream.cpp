// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/store/ModelContext.h"
#include "core/store/sqlite/RecordStore.h"

namespace elmworth {

void ModelContext::visitRecords(const RecordSchema& schema, const PredicateNode* predicate,
                                std::span<const SortKey> sortBy,
                                const std::function<void(const Record&)>& visit) {
    const RecordOrder order(schema, sortBy);
    const auto unsaved = unsavedMatches(schema, predicate, order);
    auto next = unsaved.begin();
    const auto lent = schema.make(PersistentID{});
    lent->context_ = this;  // its relationships lead on into the library
    lent->state_ = Record::State::clean;
    const auto lend = [&](const sqlite::Row& row) {
        lent->id_ = row.id();
        const auto known = existing(lent->id_);
        if (known && known->state_ != Record::State::clean)
            return;  // among the unsaved, or deleted
        if (!known) row.readInto(*lent, schema);
        const Record& record = known ? *known : *lent;
        while (next != unsaved.end() && order.precedes(**next, record)) visit(**next++);
        visit(record);
    };
    reading([&] { store_->select(schema, predicate, sortBy, std::nullopt, lend); });
    while (next != unsaved.end()) visit(**next++);
}

}  // namespace elmworth
