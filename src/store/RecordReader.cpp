// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/RecordReader.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

#include "store/RecordOrder.h"
#include "store/Schema.h"
#include "store/sqlite/RecordStore.h"

namespace elmworth {

namespace {

/// Each unsaved record may take the place of one of the library's.
std::optional<std::size_t> rowLimit(std::optional<std::size_t> limit, std::size_t unsaved) {
    return limit ? std::optional(*limit + unsaved) : std::nullopt;
}

}  // namespace

RecordReader::~RecordReader() {
    for (auto& [id, weak] : identities_) {
        if (const auto record = weak.lock()) record->context_ = nullptr;
    }
}

/// Does what reads the library, and notes it when that fails.
template <class Read>
auto RecordReader::reading(const Read& read) {
    try {
        return read();
    } catch (const StoreError& error) {
        faults_.note(error);
        throw;
    }
}

// --- identities --------------------------------------------------------------------------------

Ref<Record> RecordReader::existing(const PersistentID& id) const {
    const auto found = identities_.find(id);
    return found == identities_.end() ? nullptr : found->second.lock();
}

void RecordReader::add(Record& record) {
    identities_[record.id_] = record.weak_from_this();
}

void RecordReader::remove(const PersistentID& id) {
    identities_.erase(id);
}

void RecordReader::forget(const Record& record) noexcept {
    const auto found = identities_.find(record.id_);
    if (found != identities_.end() && found->second.expired()) identities_.erase(found);
}

Ref<Record> RecordReader::make(const RecordSchema& schema, const sqlite::Row& row) {
    auto record = schema.make(row.id());
    row.readInto(*record, schema);
    record->context_ = &owner_;
    record->state_ = Record::State::clean;
    record->stored_ = true;
    add(*record);
    return record;
}

Ref<Record> RecordReader::take(const RecordSchema& schema, const sqlite::Row& row) {
    auto known = existing(row.id());
    if (!known) return make(schema, row);
    return known->state_ == Record::State::clean ? std::move(known) : nullptr;
}

// --- reads -------------------------------------------------------------------------------------

Ref<Record> RecordReader::record(const RecordSchema& schema, const PersistentID& id) {
    if (auto known = existing(id)) return known->isDeleted() ? nullptr : known;
    Ref<Record> found;
    reading([&] {
        store_.selectOne(schema, id, [&](const sqlite::Row& row) { found = make(schema, row); });
    });
    return found;
}

void RecordReader::fetch(const RecordSchema& schema, const PredicateNode* predicate,
                         std::span<const SortKey> sortBy, std::optional<std::size_t> limit,
                         const std::function<void(Ref<Record>)>& handler) {
    const RecordOrder order(schema, sortBy);
    const auto precedes = [&](const auto& a, const auto& b) { return order.precedes(*a, *b); };
    std::vector<Ref<Record>> records;
    const auto takeRow = [&](const sqlite::Row& row) {
        if (auto record = take(schema, row)) records.push_back(std::move(record));
    };
    reading([&] {
        store_.select(schema, predicate, sortBy, rowLimit(limit, pending_.count(schema)), takeRow);
    });
    if (sortBy.empty()) std::sort(records.begin(), records.end(), precedes);
    const auto stored = static_cast<std::ptrdiff_t>(records.size());
    auto unsaved = pending_.matching(schema, predicate, order);
    std::move(unsaved.begin(), unsaved.end(), std::back_inserter(records));
    std::inplace_merge(records.begin(), records.begin() + stored, records.end(), precedes);
    if (limit && records.size() > *limit) records.resize(*limit);
    for (auto& record : records) handler(std::move(record));
}

void RecordReader::visit(const RecordSchema& schema, const PredicateNode* predicate,
                         std::span<const SortKey> sortBy, std::optional<std::size_t> limit,
                         const std::function<void(const Record&)>& visit) {
    std::size_t left = limit.value_or(std::numeric_limits<std::size_t>::max());
    const auto visitNext = [&](const Record& record) {
        if (left == 0) return;
        --left;
        visit(record);
    };
    const RecordOrder order(schema, sortBy);
    const auto unsaved = pending_.matching(schema, predicate, order);
    auto next = unsaved.begin();
    const auto lent = schema.make(PersistentID{});
    lent->context_ = &owner_;  // its relationships lead on into the library
    lent->state_ = Record::State::clean;
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
    reading([&] {
        store_.select(schema, predicate, sortBy, rowLimit(limit, pending_.count(schema)), lend);
    });
    while (next != unsaved.end()) visitNext(**next++);
}

void RecordReader::visitValues(
    const RecordSchema& schema, const PredicateNode* predicate, std::span<const std::size_t> fields,
    const std::function<void(const PersistentID&, const Value*)>& visit) {
    const bool hasUnsaved = pending_.count(schema) > 0;
    const auto hand = [&](const PersistentID& id, const std::vector<Value>& values) {
        if (!hasUnsaved || !pending_.contains(schema, id)) visit(id, values.data());
    };
    reading([&] { store_.selectValues(schema, predicate, fields, hand); });
    std::vector<Value> values(fields.size());
    for (const auto& record : pending_.matching(schema, predicate, RecordOrder(schema, {}))) {
        for (std::size_t i = 0; i < fields.size(); ++i) {
            values[i] = schema.fields[fields[i]].read(*record);
        }
        visit(record->id_, values.data());
    }
}

std::size_t RecordReader::count(const RecordSchema& schema, const PredicateNode* predicate) {
    return reading([&] {
        std::size_t count = store_.count(schema, predicate);
        pending_.forEach(schema, [&](const Record& record) {
            if (record.stored_ && store_.rowMatches(schema, record.id_, predicate)) --count;
            if (record.isDeleted()) return;
            if (!predicate || predicate->matches(schema, record)) ++count;
        });
        return count;
    });
}

double RecordReader::storedSpan(const SpanFields& fields, const PersistentID& owner) {
    return reading([&] { return store_.totalSpan(fields, owner); });
}

}  // namespace elmworth
