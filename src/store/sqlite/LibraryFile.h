// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <filesystem>

#include "store/sqlite/Database.h"
#include "store/sqlite/LibraryMigration.h"

namespace elmworth::sqlite {

/// "ELMW": what the head of a library says that SQLite's own files do not.
inline constexpr std::uint32_t libraryApplicationID = 0x454C4D57;

/// Opens the library file `file` of `model` for the only process that uses it, making a new one
/// where there is none: folder 0700, file 0600, write-ahead log, every commit durable by exactly
/// one sync, the first one by another of the folder unless `syncLog` came before. A library of an
/// older version is brought to the current one (see `migrate`). A file that is no library, or of a
/// version that is newer or leads to no current one, is refused and left as it was. Throws
/// StoreError or std::filesystem::filesystem_error.
[[nodiscard]] Database openLibraryFile(const std::filesystem::path& file,
                                       const LibraryModel& model);

/// A new, empty library in memory.
[[nodiscard]] Database openLibraryInMemory(const LibraryModel& model);

/// Moves the write-ahead log into the library file and begins a new one, so that the next opening
/// stays quick; its file is cut back to `longestKeptLog`. Throws StoreError; what is not moved
/// stays in the log.
void moveLogIntoLibrary(Database& database);

/// Bytes of the log's file that are kept for what comes next, whatever an import made of it.
inline constexpr std::int64_t longestKeptLog = 4'194'304;

/// The size of the log's file in bytes, of which the log itself may be a part; 0 when it can't be
/// told.
[[nodiscard]] std::int64_t logFileSize(const Database& database) noexcept;

/// Syncs the log. The first sync that a connection makes takes in the library's folder too, and
/// whoever has the time spares the first save that. A failure is left to that save.
void syncLog(const Database& database) noexcept;

}  // namespace elmworth::sqlite
