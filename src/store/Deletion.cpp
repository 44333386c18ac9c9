// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/Deletion.h"

#include <string>

#include "store/Schema.h"
#include "store/UnitOfWork.h"

namespace elmworth {

namespace {

void collect(const Ref<Record>& record, UnitOfWork& records, Deletion& deletion) {
    deletion.deleted.push_back(record);
    for (const auto& relationship : record->recordSchema().relationships) {
        if (relationship.rule == DeleteRule::deny) continue;
        const auto& schema = relationship.target();
        for (const auto& other : records.related(schema, relationship.inverse, record->id())) {
            if (relationship.rule == DeleteRule::cascade) {
                collect(other, records, deletion);
            } else {
                deletion.nullified.emplace_back(other, schema.fieldIndex(relationship.inverse));
            }
        }
    }
}

}  // namespace

Deletion Deletion::of(const Ref<Record>& record, UnitOfWork& records) {
    Deletion deletion;
    collect(record, records, deletion);
    return deletion;
}

void requireDeletable(const Record& record, UnitOfWork& records) {
    for (const auto& relationship : record.recordSchema().relationships) {
        if (relationship.rule != DeleteRule::deny) continue;
        if (records.related(relationship.target(), relationship.inverse, record.id()).empty())
            continue;
        throw StoreError(StoreError::Code::deleteDenied,
                         "A " + std::string(record.recordSchema().name) + " that still has " +
                             std::string(relationship.name) + " can't be deleted.");
    }
}

}  // namespace elmworth
