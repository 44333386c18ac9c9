// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "store/Schema.h"
#include "store/sqlite/Database.h"

namespace elmworth::sqlite {

/// "1.0.0".
[[nodiscard]] std::string versionText(std::int64_t version);

/// The version that `database` has, also where it stands in the log alone.
[[nodiscard]] int storedVersion(Database& database);

/// Brings the library `file`, open in `database`, to the current version: each step in a
/// transaction of its own, which also writes the number. Until that is durable the library as it
/// was lies beside it under the name of `copyBeforeStep`; a copy that a crash has left is removed.
/// Requires `model.canRead`.
///
/// Throws StoreError, with a sentence that names the file. The library then has the version and the
/// content of the last step that was durable, and the copy stays.
void migrate(Database& database, const std::filesystem::path& file, const LibraryModel& model);

/// "library.sqlite-1.0.0" for the library "library.sqlite" before a step from version 1.0.0.
[[nodiscard]] std::filesystem::path copyBeforeStep(const std::filesystem::path& file, int version);

}  // namespace elmworth::sqlite
