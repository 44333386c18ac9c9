// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "store/PendingRecords.h"
#include "store/Query.h"
#include "store/ReadFaults.h"
#include "store/Record.h"
#include "store/SpanTotals.h"

namespace elmworth {

class UnitOfWork;

namespace sqlite {
class RecordStore;
class Row;
}  // namespace sqlite

/// Reads the records of a unit of work: the rows of its library, and over them what waits for the
/// save. Keeps the one object that each record has. Reads throw StoreError, and count as faults.
class RecordReader {
 public:
    /// All but the owner are used until this dies.
    RecordReader(UnitOfWork& owner, sqlite::RecordStore& store, const PendingRecords& pending,
                 ReadFaults& faults)
        : owner_(owner), store_(store), pending_(pending), faults_(faults) {}
    RecordReader(const RecordReader&) = delete;
    RecordReader& operator=(const RecordReader&) = delete;
    /// Records that are still referred to leave their unit of work.
    ~RecordReader();

    /// The object of a record, if it has one.
    [[nodiscard]] Ref<Record> existing(const PersistentID& id) const;
    /// From now on `record` is the object of its identity.
    void add(Record& record);
    void remove(const PersistentID& id);
    /// The same, for an object that is about to die, unless there is another by now.
    void forget(const Record& record) noexcept;

    /// The record of an identity, or null when the library has none or it is deleted.
    [[nodiscard]] Ref<Record> record(const RecordSchema& schema, const PersistentID& id);

    void fetch(const RecordSchema& schema, const PredicateNode* predicate,
               std::span<const SortKey> sortBy, std::optional<std::size_t> limit,
               const std::function<void(Ref<Record>)>& handler);
    /// As `fetch`, but without making an object for each: one that nobody has is lent for the call.
    void visit(const RecordSchema& schema, const PredicateNode* predicate,
               std::span<const SortKey> sortBy, std::optional<std::size_t> limit,
               const std::function<void(const Record&)>& visit);
    /// The values of `fields`, in any order of the records.
    void visitValues(const RecordSchema& schema, const PredicateNode* predicate,
                     std::span<const std::size_t> fields,
                     const std::function<void(const PersistentID&, const Value*)>& visit);
    [[nodiscard]] std::size_t count(const RecordSchema& schema, const PredicateNode* predicate);
    /// The sum over the stored rows alone, in microseconds.
    [[nodiscard]] double storedSpan(const SpanFields& fields, const PersistentID& owner);

 private:
    template <class Read>
    auto reading(const Read& read);
    /// The object for a row; null for one that has unsaved changes.
    [[nodiscard]] Ref<Record> take(const RecordSchema& schema, const sqlite::Row& row);
    [[nodiscard]] Ref<Record> make(const RecordSchema& schema, const sqlite::Row& row);

    UnitOfWork& owner_;
    sqlite::RecordStore& store_;
    const PendingRecords& pending_;
    ReadFaults& faults_;
    std::unordered_map<PersistentID, std::weak_ptr<Record>> identities_;
};

}  // namespace elmworth
