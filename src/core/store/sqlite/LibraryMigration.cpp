// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/store/sqlite/LibraryMigration.h"

#include <algorithm>
#include <system_error>

#include "core/store/sqlite/RecordSQL.h"
#include "platform/AtomicFile.h"

namespace elmworth::sqlite {

namespace {

namespace fs = std::filesystem;

/// Every version that has been in the field leads on to the next, for good. A library is never read
/// by statements of a version that it does not have.
///
/// To add one: raise `librarySchemaVersion`, append a step, and put a library of the former version
/// beside those in tests/data/library.
constexpr MigrationStep steps[] = {
    // The entries that reach into a period, and the time of a project, are found in an index alone.
    {1'00'00, 1'01'00, R"(
DROP INDEX "TimeEntryByEnd";
CREATE INDEX "TimeEntryByEnd" ON "TimeEntry"("end", "start") WHERE "end" IS NOT NULL;
DROP INDEX "TimeEntryByProject";
CREATE INDEX "TimeEntryByProject" ON "TimeEntry"("project", "start", "end");
)"},
};

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

/// A column that the records have and the tables lack must not be found at the first save.
void checkColumns(Database& database) {
    for (const auto* schema : librarySchema()) Statement(database.handle(), selectSQL(*schema));
}

void runStep(Database& database, const MigrationStep& step, const LibraryVersions& versions) {
    database.execute("BEGIN IMMEDIATE");
    try {
        if (!step.sql.empty()) database.execute(std::string(step.sql));
        if (step.change) step.change(database);
        if (step.to == versions.current) checkColumns(database);
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
              const LibraryVersions& versions) {
    try {
        copyTo(database, copyBeforeStep(file, step.from));
        runStep(database, step, versions);
    } catch (const StoreError& error) {
        failStep(file, step, error.what());
    } catch (const fs::filesystem_error& error) {
        failStep(file, step, error.path1().string() + ": " + error.code().message());
    }
}

}  // namespace

bool LibraryVersions::canRead(int version) const {
    for (; version < current; version = stepFrom(version)->to) {
        if (!stepFrom(version)) return false;
    }
    return version == current;
}

const MigrationStep* LibraryVersions::stepFrom(int version) const {
    const auto found = std::find_if(steps.begin(), steps.end(),
                                    [&](const auto& step) { return step.from == version; });
    return found == steps.end() ? nullptr : &*found;
}

LibraryVersions libraryVersions() {
    return {librarySchemaVersion, steps};
}

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

void migrate(Database& database, const fs::path& file, const LibraryVersions& versions) {
    int version = storedVersion(database);
    if (version != versions.current) {
        // Dropping a table in order to make it anew would delete what points to its rows.
        database.execute("PRAGMA foreign_keys = OFF");
        for (; version != versions.current; version = versions.stepFrom(version)->to) {
            takeStep(database, file, *versions.stepFrom(version), versions);
            removeQuietly(copyBeforeStep(file, version));
        }
        database.execute("PRAGMA foreign_keys = ON");
    }
    for (const auto& step : versions.steps) removeQuietly(copyBeforeStep(file, step.from));
}

}  // namespace elmworth::sqlite
