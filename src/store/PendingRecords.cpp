// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/PendingRecords.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <variant>

#include "store/Schema.h"
#include "store/sqlite/RecordStore.h"

namespace elmworth {

namespace {

/// 0 unless both have a value, as in SQL.
double microseconds(const Value& since, const Value& until) {
    const auto* first = std::get_if<std::int64_t>(&since);
    const auto* last = std::get_if<std::int64_t>(&until);
    return first && last ? static_cast<double>(*last) - static_cast<double>(*first) : 0;
}

}  // namespace

const PendingRecords::RecordMap& PendingRecords::ofType(const RecordSchema& schema) const {
    return byType_[schema.ordinal];
}

bool PendingRecords::isEmpty() const noexcept {
    return std::all_of(byType_.begin(), byType_.end(),
                       [](const auto& records) { return records.empty(); });
}

std::size_t PendingRecords::count(const RecordSchema& schema) const {
    return ofType(schema).size();
}

bool PendingRecords::contains(const RecordSchema& schema, const PersistentID& id) const {
    return ofType(schema).contains(id);
}

void PendingRecords::add(const Ref<Record>& record) {
    byType_[record->recordSchema().ordinal][record->id()] = record;
}

void PendingRecords::remove(const Record& record) {
    byType_[record.recordSchema().ordinal].erase(record.id());
}

void PendingRecords::forEach(const std::function<void(Record&)>& visit) const {
    for (const auto* schema : types_) forEach(*schema, visit);
}

void PendingRecords::forEach(const RecordSchema& schema,
                             const std::function<void(Record&)>& visit) const {
    for (const auto& [id, record] : ofType(schema)) visit(*record);
}

void PendingRecords::releaseAll(const std::function<void(Record&)>& visit) {
    for (auto& records : byType_) {
        for (const auto& [id, record] : records) visit(*record);
        // Releasing a record may release others that it points to, so the map must be out of reach.
        const RecordMap released = std::exchange(records, {});
    }
}

sqlite::ChangeSet PendingRecords::changes() const {
    sqlite::ChangeSet changes;
    for (const auto* schema : types_) {
        std::vector<const Record*> ordered;
        for (const auto& [id, record] : ofType(*schema)) ordered.push_back(record.get());
        std::sort(ordered.begin(), ordered.end(),
                  [](const auto* a, const auto* b) { return a->id() < b->id(); });
        for (const auto* record : ordered) {
            switch (record->state_) {
                case Record::State::inserted:
                    changes.inserted.push_back(record);
                    break;
                case Record::State::deleted:
                    changes.deleted.push_back(record);
                    break;
                default:
                    changes.updated.push_back({record, record->saved_.get()});
                    break;
            }
        }
    }
    return changes;
}

std::vector<Ref<Record>> PendingRecords::matching(const RecordSchema& schema,
                                                  const PredicateNode* predicate,
                                                  const RecordOrder& order) const {
    std::vector<Ref<Record>> found;
    for (const auto& [id, record] : ofType(schema)) {
        if (record->isDeleted()) continue;
        if (!predicate || predicate->matches(schema, *record)) found.push_back(record);
    }
    std::sort(found.begin(), found.end(),
              [&](const auto& a, const auto& b) { return order.precedes(*a, *b); });
    return found;
}

void PendingRecords::forEachSpan(
    const SpanFields& fields,
    const std::function<void(const PersistentID& owner, double microseconds)>& add) const {
    const auto columns = fields.schema->fields;
    for (const auto& [id, record] : ofType(*fields.schema)) {
        if (record->stored_) {
            const auto& saved = *record->saved_;
            const auto* owner = std::get_if<PersistentID>(&saved[fields.owner]);
            if (owner) add(*owner, -microseconds(saved[fields.since], saved[fields.until]));
        }
        if (record->isDeleted()) continue;
        const Value value = columns[fields.owner].read(*record);
        const auto* owner = std::get_if<PersistentID>(&value);
        if (!owner) continue;
        add(*owner,
            microseconds(columns[fields.since].read(*record), columns[fields.until].read(*record)));
    }
}

}  // namespace elmworth
