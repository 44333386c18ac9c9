// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/store/ModelContext.h"
#include "core/store/sqlite/RecordStore.h"

namespace elmworth {

void ModelContext::streamRecords(const RecordSchema& schema, const PredicateNode* predicate,
                                 const std::function<void(const Record&)>& handler) {
    const auto lent = schema.make(PersistentID{});
    lent->context_ = this;  // its relationships lead on into the library
    lent->state_ = Record::State::clean;
    store_->select(schema, predicate, {}, std::nullopt, [&](const sqlite::Row& row) {
        lent->id_ = row.id();
        const auto known = existing(lent->id_);
        if (!known) {
            row.readInto(*lent, schema);
            handler(*lent);
        } else if (known->state_ == Record::State::clean) {
            handler(*known);
        }
    });
    for (const auto& [id, record] : pending(schema)) {
        if (record->isDeleted()) continue;
        if (!predicate || predicate->matches(schema, *record)) handler(*record);
    }
}

}  // namespace elmworth
