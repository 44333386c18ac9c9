// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/sqlite/LibraryFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <system_error>

#include "platform/AtomicFile.h"
#include "platform/StandardFolders.h"
#include "store/Schema.h"
#include "store/sqlite/RecordSQL.h"

namespace elmworth::sqlite {

namespace {

namespace fs = std::filesystem;

/// The fields of an SQLite file header that tell whose file it is (sqlite.org/fileformat.html).
struct FileHeader {
    std::array<unsigned char, 100> bytes{};
    std::size_t length = 0;

    [[nodiscard]] std::uint32_t number(std::size_t offset) const {
        return (std::uint32_t{bytes[offset]} << 24) | (std::uint32_t{bytes[offset + 1]} << 16) |
               (std::uint32_t{bytes[offset + 2]} << 8) | std::uint32_t{bytes[offset + 3]};
    }
    [[nodiscard]] bool isLibrary() const {
        return length == bytes.size() && std::memcmp(bytes.data(), "SQLite format 3", 16) == 0 &&
               number(68) == libraryApplicationID;
    }
    [[nodiscard]] std::uint32_t version() const { return number(60); }
};

FileHeader readHeader(const fs::path& file) {
    FileHeader header;
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) {
        throw fs::filesystem_error("cannot read the library", file,
                                   std::error_code(errno, std::generic_category()));
    }
    const auto count = ::pread(descriptor, header.bytes.data(), header.bytes.size(), 0);
    ::close(descriptor);
    header.length = count > 0 ? static_cast<std::size_t>(count) : 0;
    return header;
}

/// Refuses a version that no migration starts from: this version's statements would read wrong
/// values from it, and stamping it as current would make that permanent.
void refuseOtherVersions(const fs::path& file, std::uint32_t version, const LibraryModel& model) {
    const std::string what = "The library " + file.string() + " has version " +
                             versionText(static_cast<std::int64_t>(version)) + ", which ";
    if (version > static_cast<std::uint32_t>(model.version)) {
        throw StoreError(StoreError::Code::other, what + "needs a newer Elmworth than this one.");
    }
    if (model.canRead(static_cast<int>(version))) return;
    throw StoreError(StoreError::Code::other,
                     what +
                         "this Elmworth does not know; move it away to start with an empty one, "
                         "into which a backup can be restored.");
}

bool hasLog(const fs::path& file) {
    std::error_code error;
    const auto size = fs::file_size(file.string() + "-wal", error);
    return !error && size > 0;
}

void refuseForeignFile(const fs::path& file, const LibraryModel& model) {
    const auto header = readHeader(file);
    if (!header.isLibrary()) {
        throw StoreError(StoreError::Code::other, "The file " + file.string() +
                                                      " is not an Elmworth library; move it away "
                                                      "to start with an empty one.");
    }
    // A log may hold a later version, but no earlier one.
    if (!hasLog(file) || header.version() > static_cast<std::uint32_t>(model.version))
        refuseOtherVersions(file, header.version(), model);
}

void createSchema(Database& database, const LibraryModel& model) {
    database.execute("BEGIN; PRAGMA application_id = " + std::to_string(libraryApplicationID) +
                     "; PRAGMA user_version = " + std::to_string(model.version) + ';' +
                     createSchemaSQL(model.types) + "COMMIT");
}

/// A log without its library belongs to one that was moved away. SQLite would write it into the new
/// one, so it makes room; it is kept because it may hold that library's last changes.
void moveOrphanedLogAside(const fs::path& file) {
    for (const char* suffix : {"-wal", "-journal"}) {
        const std::string log = file.string() + suffix;
        if (fs::exists(log)) fs::rename(log, log + ".orphaned");
    }
}

/// A library appears under its name only when it is whole.
void createLibraryFile(const fs::path& file, const LibraryModel& model) {
    moveOrphanedLogAside(file);
    AtomicFile target(file);
    {
        Database database(target.temporaryPath().string());
        // A failure throws the whole file away, so it needs no journal that would be left beside.
        database.execute("PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
        createSchema(database, model);
    }
    target.commit();
}

void useOneConnection(Database& database) {
    // No shared memory file, no lock calls: one process has the library open, and LibraryLock says
    // so.
    database.execute(
        "PRAGMA locking_mode = EXCLUSIVE; PRAGMA foreign_keys = ON;"
        "PRAGMA synchronous = FULL; PRAGMA wal_autocheckpoint = 0;"
        "PRAGMA cache_size = -8192; PRAGMA temp_store = MEMORY;"
        // Takes effect with the first commit to a restarted log, which is that of `beginLog`.
        "PRAGMA journal_size_limit = " +
        std::to_string(longestKeptLog));
    sqlite3_db_config(database.handle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    sqlite3_db_config(database.handle(), SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    int keep = 1;
    sqlite3_file_control(database.handle(), "main", SQLITE_FCNTL_PERSIST_WAL, &keep);
}

/// The first commit to a fresh log syncs its header as well; one now that changes nothing keeps
/// that from a person's click.
void beginLog(Database& database) {
    database.execute("PRAGMA user_version = " + std::to_string(storedVersion(database)));
}

/// Null for a library in memory.
sqlite3_file* openLog(const Database& database) noexcept {
    sqlite3_file* log = nullptr;
    sqlite3_file_control(database.handle(), "main", SQLITE_FCNTL_JOURNAL_POINTER, &log);
    return log && log->pMethods ? log : nullptr;
}

}  // namespace

Database openLibraryFile(const fs::path& file, const LibraryModel& model) {
    createPrivateFolder(file.parent_path());
    // A link to a drive that is away is no missing library.
    if (!fs::exists(fs::symlink_status(file))) createLibraryFile(file, model);
    refuseForeignFile(file, model);
    const bool continuesLog = hasLog(file);
    Database database(file.string());
    useOneConnection(database);
    refuseOtherVersions(file, static_cast<std::uint32_t>(storedVersion(database)), model);
    database.execute("PRAGMA journal_mode = WAL; SELECT count(*) FROM sqlite_schema");
    if (!continuesLog) beginLog(database);
    migrate(database, file, model);
    return database;
}

Database openLibraryInMemory(const LibraryModel& model) {
    Database database(":memory:");
    database.execute("PRAGMA foreign_keys = ON");
    createSchema(database, model);
    return database;
}

void moveLogIntoLibrary(Database& database) {
    const int code = sqlite3_wal_checkpoint_v2(database.handle(), nullptr,
                                               SQLITE_CHECKPOINT_RESTART, nullptr, nullptr);
    if (code != SQLITE_OK) fail(code, sqlite3_errmsg(database.handle()));
    beginLog(database);
}

std::int64_t logFileSize(const Database& database) noexcept {
    auto* const log = openLog(database);
    sqlite3_int64 size = 0;
    if (!log || log->pMethods->xFileSize(log, &size) != SQLITE_OK) return 0;
    return size;
}

void syncLog(const Database& database) noexcept {
    if (auto* const log = openLog(database)) log->pMethods->xSync(log, SQLITE_SYNC_NORMAL);
}

}  // namespace elmworth::sqlite
