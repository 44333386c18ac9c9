// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/Progress.h"
#include "store/Query.h"
#include "store/SpanTotals.h"
#include "store/sqlite/Database.h"

namespace elmworth::sqlite {

/// The current row of a record type's table.
class Row {
 public:
    explicit Row(const Statement& statement) : statement_(statement) {}
    [[nodiscard]] PersistentID id() const { return statement_.identity(0); }
    /// Sets all fields of `record`.
    void readInto(Record& record, const RecordSchema& schema) const;

 private:
    const Statement& statement_;
};

/// What one save writes.
struct ChangeSet {
    struct Update {
        const Record* record;
        const std::vector<Value>* saved;  ///< the values that the library holds
    };
    std::vector<const Record*> inserted;
    std::vector<Update> updated;
    std::vector<const Record*> deleted;

    [[nodiscard]] std::size_t size() const noexcept {
        return inserted.size() + updated.size() + deleted.size();
    }
};

/// Reads and writes the rows of records. Every operation throws StoreError.
class RecordStore {
 public:
    explicit RecordStore(Database database);
    RecordStore(const RecordStore&) = delete;
    RecordStore& operator=(const RecordStore&) = delete;
    ~RecordStore();

    using RowHandler = std::function<void(const Row&)>;
    using ValuesHandler =
        std::function<void(const PersistentID& id, const std::vector<Value>& values)>;

    void select(const RecordSchema& schema, const PredicateNode* predicate,
                std::span<const SortKey> sortBy, std::optional<std::size_t> limit,
                const RowHandler& handler);
    /// The fields of those numbers of the rows that meet `predicate`, in any order.
    void selectValues(const RecordSchema& schema, const PredicateNode* predicate,
                      std::span<const std::size_t> fields, const ValuesHandler& handler);
    void selectOne(const RecordSchema& schema, const PersistentID& id, const RowHandler& handler);
    [[nodiscard]] std::size_t count(const RecordSchema& schema, const PredicateNode* predicate);
    /// The sum that SpanFields describes over the stored rows, in microseconds.
    [[nodiscard]] double totalSpan(const SpanFields& fields, const PersistentID& owner);
    /// Whether the stored row of `id` exists and meets `predicate`.
    [[nodiscard]] bool rowMatches(const RecordSchema& schema, const PersistentID& id,
                                  const PredicateNode* predicate);

    /// Writes all of `changes` in one transaction, or nothing. Also throws Cancelled.
    void write(const ChangeSet& changes, Progress& progress);

    /// Writes the rows of new records into a transaction that stays open: the next `write` goes on
    /// in it and ends it, `dropFlushed` undoes it. A failure undoes it too.
    void flush(const std::vector<const Record*>& inserted);
    void dropFlushed() noexcept;

    /// Whether the write-ahead log has grown so that moving it is worth the time, or its file is
    /// larger than it stays. False once damage was met: the file of a damaged library stays as it
    /// is, and the log keeps all changes.
    [[nodiscard]] bool hasLongLog() const noexcept;
    /// Moves the log into the library file. What cannot be moved stays in the log.
    void tidyLog() noexcept;
    /// Makes the first save as quick as those after it, and tidies what a crash left.
    void prepareLog() noexcept;

    [[nodiscard]] Database& database() noexcept { return database_; }

 private:
    /// New values for some of a record's fields, in the order of the schema.
    struct ColumnValues {
        std::uint32_t mask = 0;  ///< a bit for each field
        std::vector<Value> values;

        void set(std::size_t field, Value value) {
            mask |= 1U << field;
            values.push_back(std::move(value));
        }
    };

    /// Does what reads or writes the library, and notes when that meets damage.
    template <class Work>
    auto watched(const Work& work);
    Statement& prepared(const std::string& sql);
    void run(const std::string& sql);
    void beginTransaction();
    void writeAll(const ChangeSet& changes, Progress& progress);
    void insertRow(const Record& record);
    /// Takes from a row what its record gives up: links to other records, and unique values.
    void releaseRow(const ChangeSet::Update& update);
    void updateRow(const ChangeSet::Update& update);
    void updateColumns(const Record& record, const ColumnValues& columns);
    void deleteRow(const Record& record);

    Database database_;
    int logPages_ = 0;
    bool isDamaged_ = false;
    std::unordered_map<std::string, Statement> statements_;
};

}  // namespace elmworth::sqlite
