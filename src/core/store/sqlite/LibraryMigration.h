// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

#include "core/store/Schema.h"
#include "core/store/sqlite/Database.h"

namespace elmworth::sqlite {

/// How a library of one version becomes one of the next: by SQL statements, by a function, or by
/// the statements and then the function. Runs in a transaction, with foreign keys off, so that a
/// table can be made anew; opens and ends no transaction, and leaves the version alone.
struct MigrationStep {
    int from;
    int to;
    std::string_view sql = {};
    void (*change)(Database&) = nullptr;  ///< throws StoreError
};

/// The version that this program writes, and the steps that lead to it from older ones.
struct LibraryVersions {
    int current = librarySchemaVersion;
    std::span<const MigrationStep> steps = {};

    /// Whether a library of `version` is of the current one, or steps lead from it there.
    [[nodiscard]] bool canRead(int version) const;
    /// The step that begins at `version`; null for none.
    [[nodiscard]] const MigrationStep* stepFrom(int version) const;
};

/// The versions of this program.
[[nodiscard]] LibraryVersions libraryVersions();

/// "1.0.0".
[[nodiscard]] std::string versionText(std::int64_t version);

/// The version that `database` has, also where it stands in the log alone.
[[nodiscard]] int storedVersion(Database& database);

/// Brings the library `file`, open in `database`, to the current version: each step in a
/// transaction of its own, which also writes the number. Until that is durable the library as it
/// was lies beside it under the name of `copyBeforeStep`; a copy that a crash has left is removed.
/// Requires `versions.canRead`.
///
/// Throws StoreError, with a sentence that names the file. The library then has the version and the
/// content of the last step that was durable, and the copy stays.
void migrate(Database& database, const std::filesystem::path& file,
             const LibraryVersions& versions);

/// "library.sqlite-1.0.0" for the library "library.sqlite" before a step from version 1.0.0.
[[nodiscard]] std::filesystem::path copyBeforeStep(const std::filesystem::path& file, int version);

}  // namespace elmworth::sqlite
