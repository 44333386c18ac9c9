// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "store/PersistentID.h"
#include "store/StoreError.h"
#include "store/Value.h"

namespace elmworth::sqlite {

/// Throws the StoreError of an SQLite result code.
[[noreturn]] void fail(int code, const char* message);

/// A prepared statement. Parameters and columns count from 0.
class Statement {
 public:
    Statement(sqlite3* database, std::string_view sql);

    void bind(int parameter, const Value& value);
    void bind(int parameter, const PersistentID& id);

    /// Moves to the next row; false when there is none. Throws StoreError.
    bool step();

    [[nodiscard]] sqlite3_stmt* handle() const noexcept { return statement_.get(); }

    /// Makes the statement ready to run again and lets go of its bound values.
    void reset() noexcept;

    [[nodiscard]] std::int64_t integer(int column) const noexcept;
    [[nodiscard]] double real(int column) const noexcept;
    [[nodiscard]] std::string_view text(int column) const noexcept;
    [[nodiscard]] PersistentID identity(int column) const;
    /// The value of a column that holds a field of the storage class `storage`.
    [[nodiscard]] Value value(int column, StorageClass storage) const;

 private:
    void check(int code) const;

    struct Finalize {
        void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

/// Resets a shared statement at the end of its use.
class StatementUse {
 public:
    explicit StatementUse(Statement& statement) noexcept : statement_(statement) {}
    StatementUse(const StatementUse&) = delete;
    StatementUse& operator=(const StatementUse&) = delete;
    ~StatementUse() { statement_.reset(); }
    Statement* operator->() noexcept { return &statement_; }

 private:
    Statement& statement_;
};

/// A connection to an SQLite database.
class Database {
 public:
    /// Opens the existing file `path`, or a database in memory for ":memory:". Throws StoreError.
    explicit Database(const std::string& path);

    /// Runs statements that give no rows.
    void execute(const std::string& sql);

    [[nodiscard]] sqlite3* handle() const noexcept { return database_.get(); }

 private:
    struct Close {
        void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }
    };
    std::unique_ptr<sqlite3, Close> database_;
};

}  // namespace elmworth::sqlite
