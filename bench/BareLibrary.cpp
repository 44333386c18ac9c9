// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "BareLibrary.h"

#include <benchmark/benchmark.h>

namespace elmworth::bench {

BareLibrary::BareLibrary(const std::filesystem::path& file) : database_(file.string()) {
    execute(
        "PRAGMA locking_mode = EXCLUSIVE; PRAGMA foreign_keys = ON; PRAGMA synchronous = FULL;"
        "PRAGMA wal_autocheckpoint = 0; PRAGMA cache_size = -8192; PRAGMA temp_store = MEMORY;"
        "PRAGMA journal_mode = WAL");
    sqlite3_db_config(database_.handle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    int keep = 1;
    sqlite3_file_control(database_.handle(), "main", SQLITE_FCNTL_PERSIST_WAL, &keep);
}

void BareLibrary::tidy() {
    execute("PRAGMA wal_checkpoint(RESTART); PRAGMA user_version = 10000");
}

std::size_t readEntries(sqlite::Statement& statement) {
    std::size_t count = 0;
    while (statement.step()) {
        ++count;
        benchmark::DoNotOptimize(statement.identity(0));
        benchmark::DoNotOptimize(statement.integer(1));
        benchmark::DoNotOptimize(statement.integer(2));
        benchmark::DoNotOptimize(statement.text(3));
        benchmark::DoNotOptimize(statement.text(4));
        benchmark::DoNotOptimize(statement.text(5));
        benchmark::DoNotOptimize(statement.integer(6));
    }
    statement.reset();
    return count;
}

void bindInstant(sqlite::Statement& statement, int parameter, Instant instant) {
    statement.bind(parameter, Value{std::int64_t{instant.time_since_epoch().count()}});
}

}  // namespace elmworth::bench
