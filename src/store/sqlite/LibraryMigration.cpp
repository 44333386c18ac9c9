// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/sqlite/LibraryMigration.h"

#include <system_error>

#include "platform/AtomicFile.h"
#include "store/sqlite/RecordSQL.h"

namespace elmworth::sqlite {

namespace {

namespace fs = std::filesystem;

/// Copies page by page what the connection sees, the log included. Whatever else opens the file in
/// this process would end the connection's lock on it.
void copyTo(Database& source, const fs::path& target) {
    AtomicFile file(target);
    {
        Database copy(file.temporaryPath().string());
        // A failure throws the whole file away, and committing it syncs it.
        copy.execute("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
        auto* const backup = sqlite3_backup_init(copy.handle(), "main", source.handle(), "main");
        if (!backup) fail(sqlite3_errcode(copy.handle()), sqlite3_errmsg(copy.handle()));
        sqlite3_backup_step(backup, -1);
        const int code = sqlite3_backup_finish(backup);
        if (code != SQLITE_OK) fail(code, sqlite3_errstr(code));
    }
    file.commit();
}

void removeQuietly(const fs::path& file) noexcept {
    std::error_code ignored;
    fs::remove(file, ignored);
}

/// Finds a column that the tables lack at the opening, and not at the first save.
void checkColumns(Database& database, const LibraryModel& model) {
    for (const auto* schema : model.types) Statement(database.handle(), selectSQL(*schema));
}

void runStep(Database& database, const MigrationStep& step, const LibraryModel& model) {
    database.execute("BEGIN IMMEDIATE");
    try {
        if (!step.sql.empty()) database.execute(std::string(step.sql));
        if (step.change) step.change(database);
        if (step.to == model.version) checkColumns(database, model);
        database.execute("PRAGMA user_version = " + std::to_string(step.to));
        database.execute("COMMIT");
    } catch (...) {
        // SQLite ends the transaction by itself after some failures.
        if (sqlite3_get_autocommit(database.handle()) == 0)
            sqlite3_exec(database.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

[[noreturn]] void failStep(const fs::path& file, const MigrationStep& step,
                           const std::string& reason) {
    throw StoreError(StoreError::Code::other, "The library " + file.string() +
                                                  " can't be brought from version " +
                                                  versionText(step.from) + " to " +
                                                  versionText(step.to) + ": " + reason + '.');
}

void takeStep(Database& database, const fs::path& file, const MigrationStep& step,
              const LibraryModel& model) {
    try {
        copyTo(database, copyBeforeStep(file, step.from));
        runStep(database, step, model);
    } catch (const StoreError& error) {
        failStep(file, step, error.what());
    } catch (const fs::filesystem_error& error) {
        failStep(file, step, error.path1().string() + ": " + error.code().message());
    }
}

}  // namespace

std::string versionText(std::int64_t version) {
    return std::to_string(version / 10000) + '.' + std::to_string(version / 100 % 100) + '.' +
           std::to_string(version % 100);
}

int storedVersion(Database& database) {
    Statement statement(database.handle(), "PRAGMA user_version");
    return statement.step() ? static_cast<int>(statement.integer(0)) : 0;
}

fs::path copyBeforeStep(const fs::path& file, int version) {
    return file.string() + '-' + versionText(version);
}

void migrate(Database& database, const fs::path& file, const LibraryModel& model) {
    int version = storedVersion(database);
    if (version != model.version) {
        // With foreign keys on, dropping a table to recreate it would delete the rows that refer to
        // it.
        database.execute("PRAGMA foreign_keys = OFF");
        for (; version != model.version; version = model.stepFrom(version)->to) {
            takeStep(database, file, *model.stepFrom(version), model);
            removeQuietly(copyBeforeStep(file, version));
        }
        database.execute("PRAGMA foreign_keys = ON");
    }
    for (const auto& step : model.steps) removeQuietly(copyBeforeStep(file, step.from));
}

}  // namespace elmworth::sqlite
