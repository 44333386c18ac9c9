// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Progress.h"
#include "platform/RunLoop.h"
#include "store/ChangeObservers.h"
#include "store/PendingRecords.h"
#include "store/Query.h"
#include "store/ReadFaults.h"
#include "store/Record.h"
#include "store/RecordReader.h"
#include "store/SpanTotals.h"
#include "store/StepRecorder.h"
#include "store/StoreError.h"

namespace elmworth {

/// The unit of work over a library: hands out its records, notes their changes, and writes all of
/// them in one transaction.
///
/// A record of the library has at most one object at a time; a fetch gives the object that exists,
/// with its unsaved changes, or makes one. Objects that nobody refers to and that have nothing to
/// save are let go. All fetches see unsaved changes. Reads throw StoreError when the library cannot
/// be read; following a relationship from a record answers as absent or empty then (see
/// `CompleteReading`).
class UnitOfWork {
 public:
    /// `types` are those of the library in `store`, and outlive this.
    UnitOfWork(std::unique_ptr<sqlite::RecordStore> store,
               std::span<const RecordSchema* const> types, RunLoop& runLoop);
    UnitOfWork(const UnitOfWork&) = delete;
    UnitOfWork& operator=(const UnitOfWork&) = delete;
    ~UnitOfWork();

    /// Takes a new record. What it points to must be in the context by the time of the save.
    void insert(const Ref<Record>& record);

    /// Takes back the record of an identity that this library held and holds no more. One whose
    /// deletion waits for the save is there again, with the values that it had; any other is a new
    /// object with the values of a new record. What its deletion did to other records stays done.
    template <class T>
    Ref<T> reinsert(const PersistentID& id) {
        return std::static_pointer_cast<T>(reinsert(T::schema(), id));
    }
    Ref<Record> reinsert(const RecordSchema& schema, const PersistentID& id);

    /// Deletes a record and does to those that point to it what the delete rules say. A rule that
    /// denies the deletion speaks at the save. Throws StoreError when the related records cannot be
    /// read; nothing is deleted then.
    void deleteRecord(const Ref<Record>& record);

    /// Sets a field of a record that this has. An equal value changes nothing.
    void assign(const Ref<Record>& record, std::size_t field, Value value);

    /// Begins to note what becomes of records, until `endStep`. Steps do not nest.
    void beginStep();
    /// What became of records since `beginStep`, whether it is saved or not; absent when it was too
    /// much to be noted, since inserts were flushed.
    [[nodiscard]] std::optional<std::vector<RecordStep>> endStep();

    /// Makes all changes durable in one transaction. Throws StoreError, or Cancelled when
    /// `progress` says so; the changes then stay pending, and the next save tries them again.
    void save(Progress& progress = noProgress());

    /// As `save`; a failure is dropped on purpose, and the changes stay pending.
    void saveQuietly() noexcept;

    /// As `save`; a failure rolls all changes back before it is thrown.
    void saveOrRollback(Progress& progress = noProgress());

    /// Writes the new records into the transaction that the next save ends, and lets go of those
    /// that nobody refers to, so that a long row of insertions takes the memory of a short one.
    /// What they point to must be among them or stored. Does nothing while there are changes of
    /// another kind. Throws StoreError; all changes are rolled back then, as they are when that
    /// save fails.
    void flushInserts();

    /// Drops all changes since the last save: changed and deleted records have the values that
    /// stood then, new ones leave the context.
    void rollback();

    [[nodiscard]] bool hasChanges() const noexcept;

    /// The records of type `T` that `descriptor` asks for.
    template <class T>
    [[nodiscard]] std::vector<Ref<T>> fetch(const Query<T>& descriptor = {}) {
        std::vector<Ref<T>> records;
        reader_.fetch(T::schema(), node(descriptor), descriptor.sortBy, descriptor.fetchLimit,
                      [&](Ref<Record> record) {
                          records.push_back(std::static_pointer_cast<T>(std::move(record)));
                      });
        return records;
    }

    /// As `fetch`; a failure counts as an empty answer.
    template <class T>
    [[nodiscard]] std::vector<Ref<T>> fetchQuietly(const Query<T>& descriptor = {}) {
        try {
            return fetch(descriptor);
        } catch (const StoreError&) {
            return {};
        }
    }

    /// As `record`; a failure counts as none.
    template <class T>
    [[nodiscard]] Ref<T> recordQuietly(const PersistentID& id) {
        return std::static_pointer_cast<T>(recordQuietly(T::schema(), id));
    }
    [[nodiscard]] Ref<Record> recordQuietly(const RecordSchema& schema, const PersistentID& id);

    /// Hands out what `fetch` would give, one after another and in its order, without making an
    /// object for each: one that nobody has is lent for the call alone, so that work on the whole
    /// library takes the memory of one record. Without sort keys the order is any. `visit` may
    /// follow relationships, but fetches and changes nothing.
    template <class T>
    void forEach(const Query<T>& descriptor, const std::function<void(const T&)>& visit) {
        reader_.visit(T::schema(), node(descriptor), descriptor.sortBy, descriptor.fetchLimit,
                      [&](const Record& record) { visit(static_cast<const T&>(record)); });
    }

    /// Hands out the identity and the values of `Fields` of each record that meets `predicate`,
    /// to-one fields as optional identities, without making records and in any order: for sums over
    /// many. `visit` fetches and changes nothing.
    template <auto... Fields, class T, class Visit>
    void forEachValues(const std::optional<Predicate<T>>& predicate, const Visit& visit) {
        const std::array fields{KeyPath<Fields>::index()...};
        reader_.visitValues(T::schema(), predicate ? predicate->node().get() : nullptr, fields,
                            [&](const PersistentID& id, const Value* values) {
                                handOut<Fields...>(id, values, visit,
                                                   std::make_index_sequence<sizeof...(Fields)>());
                            });
    }

    /// How many records `fetch` would give without a limit.
    template <class T>
    [[nodiscard]] std::size_t fetchCount(const Query<T>& descriptor = {}) {
        return reader_.count(T::schema(), node(descriptor));
    }

    /// The sum of `Until` minus `Since`, in seconds, over the records that have both and whose
    /// to-one field `Owner` points to `owner`. The library is asked for it once and makes no
    /// records; what changes and is saved later is added to what it said.
    template <auto Owner, auto Since, auto Until>
    [[nodiscard]] double totalSeconds(const PersistentID& owner) {
        const SpanFields fields{&KeyPath<Owner>::RecordType::schema(), KeyPath<Owner>::index(),
                                KeyPath<Since>::index(), KeyPath<Until>::index()};
        return totalSpan(fields, owner) / 1e6;
    }

    /// The record of an identity, or null when the library has none or it is deleted.
    template <class T>
    [[nodiscard]] Ref<T> record(const PersistentID& id) {
        return std::static_pointer_cast<T>(record(T::schema(), id));
    }
    [[nodiscard]] Ref<Record> record(const RecordSchema& schema, const PersistentID& id) {
        return reader_.record(schema, id);
    }

    /// The records of `schema` whose to-one field `inverse` points to `owner`, oldest first.
    [[nodiscard]] std::vector<Ref<Record>> related(const RecordSchema& schema,
                                                   std::string_view inverse,
                                                   const PersistentID& owner);
    /// The records of `schema` that have `value` in `field`, oldest first.
    [[nodiscard]] std::vector<Ref<Record>> recordsWith(const RecordSchema& schema,
                                                       std::size_t field, Value value);

    /// Calls `changed` after records of `schema` changed: once in the next turn of the run loop
    /// however many changes there were, and at once in `save`. Ends when the handle dies.
    using Observation = ChangeObservers::Observation;
    [[nodiscard]] Observation observe(const RecordSchema& schema, std::function<void()> changed) {
        return observers_.observe(schema, std::move(changed));
    }
    /// The same for records of all types, with what became of each: one call for all of them.
    [[nodiscard]] Observation observeAll(std::function<void(const RecordChanges&)> changed) {
        return observers_.observeAll(std::move(changed));
    }

    /// The reads of this library that failed, whoever asked.
    [[nodiscard]] ReadFaults& readFaults() noexcept { return readFaults_; }

    /// Delivers what waits for the next turn of the run loop now.
    void deliverChanges() { observers_.deliver(); }

 private:
    friend class Record;

    template <class T>
    static const PredicateNode* node(const Query<T>& descriptor) {
        return descriptor.predicate ? descriptor.predicate->node().get() : nullptr;
    }

    template <auto... Fields, class Visit, std::size_t... I>
    static void handOut(const PersistentID& id, const Value* values, const Visit& visit,
                        std::index_sequence<I...> /*places*/) {
        visit(id, FieldTraits<typename KeyPath<Fields>::Field::ValueType>::fromValue(values[I])...);
    }

    [[nodiscard]] double totalSpan(const SpanFields& fields, const PersistentID& owner);

    void recordWillChange(Record& record);
    void recordDidChange(Record& record, std::size_t field);
    void note(const Record& record, const RecordChange& change);
    void forget(Record& record) noexcept { reader_.forget(record); }

    void markDeleted(const Ref<Record>& record);
    void checkDeniedDeletions();
    void forgetChanges();
    void detachFlushed();
    void tidyLogLater();
    void noteRestored(const Record& record);
    void restore(Record& record);

    std::unique_ptr<sqlite::RecordStore> store_;
    RunLoop& runLoop_;
    ReadFaults readFaults_;
    PendingRecords pending_;
    RecordReader reader_;
    std::vector<PersistentID> flushed_;  ///< new records in the open transaction
    SpanTotals totals_;                  ///< as stored, with `flushed_`
    ChangeObservers observers_;
    std::optional<StepRecorder> recorder_;  ///< while a step is noted
    RunLoop::Handle upkeep_;
};

/// For work that must not leave anything out: a relationship that can't be followed looks absent,
/// but not to this.
class CompleteReading {
 public:
    explicit CompleteReading(UnitOfWork& context)
        : faults_(context.readFaults()), countBefore_(faults_.count()) {}

    /// Throws StoreError when a read has failed since.
    void check() const {
        if (faults_.count() == countBefore_) return;
        throw StoreError(StoreError::Code::corrupt, "Part of it can't be read");
    }

 private:
    const ReadFaults& faults_;
    std::size_t countBefore_;
};

}  // namespace elmworth
