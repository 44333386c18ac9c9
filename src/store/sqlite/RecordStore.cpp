// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/sqlite/RecordStore.h"

#include <utility>

#include "store/sqlite/LibraryFile.h"
#include "store/sqlite/RecordSQL.h"

namespace elmworth::sqlite {

namespace {

Value fieldValue(const Statement& statement, int column, const FieldDescription& field) {
    Value value = statement.value(column, field.storage);
    if (!field.optional && std::holds_alternative<std::monostate>(value)) {
        throw StoreError(StoreError::Code::corrupt, "The library holds a damaged record.");
    }
    return value;
}

}  // namespace

void Row::readInto(Record& record, const RecordSchema& schema) const {
    int column = 1;
    for (const auto& field : schema.fields) {
        field.write(record, fieldValue(statement_, column++, field));
    }
}

RecordStore::RecordStore(Database database) : database_(std::move(database)) {
    sqlite3_wal_hook(
        database_.handle(),
        [](void* pages, sqlite3* /*database*/, const char* /*name*/, int count) {
            *static_cast<int*>(pages) = count;
            return SQLITE_OK;
        },
        &logPages_);
}

RecordStore::~RecordStore() {
    if (hasLongLog()) tidyLog();
}

bool RecordStore::hasLongLog() const noexcept {
    if (isDamaged_) return false;
    return logPages_ >= 256 || logFileSize(database_) > longestKeptLog;
}

void RecordStore::tidyLog() noexcept {
    try {
        moveLogIntoLibrary(database_);
    } catch (const StoreError&) {
        return;  // tried again after a later save
    }
}

void RecordStore::prepareLog() noexcept {
    if (hasLongLog()) tidyLog();
    syncLog(database_);
}

template <class Work>
auto RecordStore::watched(const Work& work) {
    try {
        return work();
    } catch (const StoreError& error) {
        if (error.code() == StoreError::Code::corrupt) isDamaged_ = true;
        throw;
    }
}

Statement& RecordStore::prepared(const std::string& sql) {
    const auto found = statements_.find(sql);
    if (found != statements_.end()) return found->second;
    return statements_.emplace(sql, Statement(database_.handle(), sql)).first->second;
}

void RecordStore::run(const std::string& sql) {
    StatementUse statement(prepared(sql));
    statement->step();
}

void RecordStore::select(const RecordSchema& schema, const PredicateNode* predicate,
                         std::span<const SortKey> sortBy, std::optional<std::size_t> limit,
                         const RowHandler& handler) {
    const auto where = whereSQL(schema, predicate);
    std::string sql = selectSQL(schema) + where.text + orderSQL(schema, sortBy, limit.has_value());
    if (limit) sql += " LIMIT ?";
    auto& shared = prepared(sql);
    StatementUse statement(shared);
    int parameter = 0;
    for (const auto* value : where.values) statement->bind(parameter++, *value);
    if (limit) statement->bind(parameter, Value{static_cast<std::int64_t>(*limit)});
    const Row row(shared);
    watched([&] {
        while (statement->step()) handler(row);
    });
}

void RecordStore::selectValues(const RecordSchema& schema, const PredicateNode* predicate,
                               std::span<const std::size_t> fields, const ValuesHandler& handler) {
    const auto where = whereSQL(schema, predicate);
    auto& shared = prepared(selectSQL(schema, fields) + where.text);
    StatementUse statement(shared);
    int parameter = 0;
    for (const auto* value : where.values) statement->bind(parameter++, *value);
    std::vector<Value> values(fields.size());
    watched([&] {
        while (statement->step()) {
            int column = 1;
            for (std::size_t i = 0; i < fields.size(); ++i) {
                values[i] = fieldValue(shared, column++, schema.fields[fields[i]]);
            }
            handler(statement->identity(0), values);
        }
    });
}

void RecordStore::selectOne(const RecordSchema& schema, const PersistentID& id,
                            const RowHandler& handler) {
    auto& shared = prepared(selectSQL(schema) + " WHERE \"id\" = ?");
    StatementUse statement(shared);
    statement->bind(0, id);
    watched([&] {
        if (statement->step()) handler(Row(shared));
    });
}

std::size_t RecordStore::count(const RecordSchema& schema, const PredicateNode* predicate) {
    const auto where = whereSQL(schema, predicate);
    StatementUse statement(
        prepared("SELECT count(*) FROM \"" + std::string(schema.name) + '"' + where.text));
    int parameter = 0;
    for (const auto* value : where.values) statement->bind(parameter++, *value);
    watched([&] { statement->step(); });
    return static_cast<std::size_t>(statement->integer(0));
}

double RecordStore::totalSpan(const SpanFields& fields, const PersistentID& owner) {
    StatementUse statement(prepared(totalSpanSQL(fields)));
    statement->bind(0, owner);
    watched([&] { statement->step(); });
    return statement->real(0);
}

bool RecordStore::rowMatches(const RecordSchema& schema, const PersistentID& id,
                             const PredicateNode* predicate) {
    const auto where = whereSQL(schema, predicate);
    const std::string joint = where.text.empty() ? " WHERE " : " AND ";
    StatementUse statement(prepared("SELECT 1 FROM \"" + std::string(schema.name) + '"' +
                                    where.text + joint + "\"id\" = ?"));
    int parameter = 0;
    for (const auto* value : where.values) statement->bind(parameter++, *value);
    statement->bind(parameter, id);
    return watched([&] { return statement->step(); });
}

void RecordStore::write(const ChangeSet& changes, Progress& progress) {
    watched([&] { writeAll(changes, progress); });
}

void RecordStore::writeAll(const ChangeSet& changes, Progress& progress) {
    auto wrote = [&, done = std::size_t{0}]() mutable {
        progress.advance("Saving", ++done, changes.size());
    };
    beginTransaction();
    try {
        // Deletions come before insertions and updates: a number that a deleted invoice had may be
        // taken again in the same save. What changed records give up goes before all of that:
        // SQLite would delete an entry with the project that it has left, and would refuse a number
        // that another record still has.
        for (const auto& update : changes.updated) releaseRow(update);
        for (const auto* record : changes.deleted) {
            deleteRow(*record);
            wrote();
        }
        for (const auto* record : changes.inserted) {
            insertRow(*record);
            wrote();
        }
        for (const auto& update : changes.updated) {
            updateRow(update);
            wrote();
        }
        run("COMMIT");
    } catch (...) {
        dropFlushed();
        throw;
    }
}

void RecordStore::beginTransaction() {
    if (sqlite3_get_autocommit(database_.handle()) != 0) run("BEGIN IMMEDIATE");
}

void RecordStore::flush(const std::vector<const Record*>& inserted) {
    beginTransaction();
    try {
        watched([&] {
            for (const auto* record : inserted) insertRow(*record);
        });
    } catch (...) {
        dropFlushed();
        throw;
    }
}

void RecordStore::dropFlushed() noexcept {
    // SQLite ends the transaction by itself after some failures.
    if (sqlite3_get_autocommit(database_.handle()) == 0) {
        sqlite3_exec(database_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void RecordStore::insertRow(const Record& record) {
    const auto& schema = record.recordSchema();
    StatementUse statement(prepared(insertSQL(schema)));
    statement->bind(0, record.id());
    int parameter = 1;
    for (const auto& field : schema.fields) statement->bind(parameter++, field.read(record));
    statement->step();
}

void RecordStore::releaseRow(const ChangeSet::Update& update) {
    const auto& fields = update.record->recordSchema().fields;
    ColumnValues released;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const Value& saved = (*update.saved)[i];
        const bool mayBlock = fields[i].target != nullptr || fields[i].unique;
        if (!mayBlock || saved == Value{} || fields[i].read(*update.record) == saved) continue;
        // The identity stands in where a value is needed that no other row has.
        released.set(i, fields[i].unique ? Value{update.record->id().string()} : Value{});
    }
    updateColumns(*update.record, released);
}

void RecordStore::updateRow(const ChangeSet::Update& update) {
    const auto& fields = update.record->recordSchema().fields;
    ColumnValues changed;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        Value value = fields[i].read(*update.record);
        if (value != (*update.saved)[i]) changed.set(i, std::move(value));
    }
    updateColumns(*update.record, changed);
}

void RecordStore::updateColumns(const Record& record, const ColumnValues& columns) {
    if (columns.mask == 0) return;
    StatementUse statement(prepared(updateSQL(record.recordSchema(), columns.mask)));
    int parameter = 0;
    for (const auto& value : columns.values) statement->bind(parameter++, value);
    statement->bind(parameter, record.id());
    statement->step();
    if (sqlite3_changes(database_.handle()) != 1) {
        throw StoreError(StoreError::Code::corrupt, "The library has lost a record.");
    }
}

void RecordStore::deleteRow(const Record& record) {
    StatementUse statement(prepared("DELETE FROM \"" + std::string(record.recordSchema().name) +
                                    "\" WHERE \"id\" = ?"));
    statement->bind(0, record.id());
    statement->step();
}

}  // namespace elmworth::sqlite
