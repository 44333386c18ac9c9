// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/sqlite/Database.h"

#include <cstring>

#include "platform/Collator.h"

namespace elmworth::sqlite {

namespace {

StoreError::Code classify(int code) {
    switch (code & 0xFF) {
        case SQLITE_FULL:
        case SQLITE_IOERR:
        case SQLITE_READONLY:
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
            return StoreError::Code::io;
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return StoreError::Code::corrupt;
        case SQLITE_CONSTRAINT:
            return StoreError::Code::constraint;
        default:
            return StoreError::Code::other;
    }
}

int compareNames(void* /*context*/, int lengthA, const void* a, int lengthB, const void* b) {
    return localizedStandardCompare(
        {static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
        {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
}

/// Collators take a while to make, so the collation is registered by the first statement that
/// sorts.
void provideCollation(void* /*context*/, sqlite3* database, int /*encoding*/, const char* name) {
    sqlite3_create_collation_v2(database, name, SQLITE_UTF8, nullptr, &compareNames, nullptr);
}

}  // namespace

void fail(int code, const char* message) {
    if ((code & 0xFF) == SQLITE_BUSY || (code & 0xFF) == SQLITE_LOCKED)
        message = "another program has the library open. Close it, and try again.";
    throw StoreError(classify(code), message);
}

Statement::Statement(sqlite3* database, std::string_view sql) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()),
                                        SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    statement_.reset(statement);
    if (code != SQLITE_OK) fail(code, sqlite3_errmsg(database));
}

void Statement::bind(int parameter, const PersistentID& id) {
    check(sqlite3_bind_blob(statement_.get(), parameter + 1, id.bytes.data(),
                            static_cast<int>(id.bytes.size()), SQLITE_TRANSIENT));
}

void Statement::bind(int parameter, const Value& value) {
    auto* statement = statement_.get();
    const int index = parameter + 1;
    if (const auto* number = std::get_if<std::int64_t>(&value)) {
        check(sqlite3_bind_int64(statement, index, *number));
    } else if (const auto* text = std::get_if<std::string>(&value)) {
        check(sqlite3_bind_text64(statement, index, text->data(), text->size(), SQLITE_TRANSIENT,
                                  SQLITE_UTF8));
    } else if (const auto* blob = std::get_if<Blob>(&value)) {
        check(sqlite3_bind_blob64(statement, index, blob->bytes.data(), blob->bytes.size(),
                                  SQLITE_TRANSIENT));
    } else if (const auto* id = std::get_if<PersistentID>(&value)) {
        bind(parameter, *id);
    } else {
        check(sqlite3_bind_null(statement, index));
    }
}

void Statement::check(int code) const {
    if (code != SQLITE_OK) fail(code, sqlite3_errmsg(sqlite3_db_handle(statement_.get())));
}

bool Statement::step() {
    const int code = sqlite3_step(statement_.get());
    if (code == SQLITE_ROW) return true;
    if (code == SQLITE_DONE) return false;
    fail(code, sqlite3_errmsg(sqlite3_db_handle(statement_.get())));
}

void Statement::reset() noexcept {
    sqlite3_reset(statement_.get());
    sqlite3_clear_bindings(statement_.get());
}

std::int64_t Statement::integer(int column) const noexcept {
    return sqlite3_column_int64(statement_.get(), column);
}

double Statement::real(int column) const noexcept {
    return sqlite3_column_double(handle(), column);
}

std::string_view Statement::text(int column) const noexcept {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_.get(), column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column));
    return bytes ? std::string_view(bytes, size) : std::string_view();
}

PersistentID Statement::identity(int column) const {
    const auto bytes = text(column);
    PersistentID id;
    if (bytes.size() != id.bytes.size()) {
        throw StoreError(StoreError::Code::corrupt, "The library holds a damaged record.");
    }
    std::memcpy(id.bytes.data(), bytes.data(), bytes.size());
    return id;
}

Value Statement::value(int column, StorageClass storage) const {
    if (sqlite3_column_type(statement_.get(), column) == SQLITE_NULL) return {};
    switch (storage) {
        case StorageClass::integer:
            return integer(column);
        case StorageClass::text:
            return std::string(text(column));
        case StorageClass::blob:
            return Blob{std::string(text(column))};
        case StorageClass::identity:
            return identity(column);
    }
    return {};
}

Database::Database(const std::string& path) {
    sqlite3* database = nullptr;
    const int code = sqlite3_open_v2(
        path.c_str(), &database,
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    database_.reset(database);
    if (code != SQLITE_OK) fail(code, database ? sqlite3_errmsg(database) : sqlite3_errstr(code));
    // Otherwise a column that a table lacks would read as its own name in every row.
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    // A library may come from anybody: nothing that is defined in it runs by itself.
    sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_collation_needed(database, nullptr, &provideCollation);
}

void Database::execute(const std::string& sql) {
    const int code = sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) fail(code, sqlite3_errmsg(database_.get()));
}

}  // namespace elmworth::sqlite
