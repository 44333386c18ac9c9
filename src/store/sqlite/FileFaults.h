// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <vector>

#include "platform/Progress.h"
#include "store/Schema.h"
#include "store/sqlite/Database.h"

namespace elmworth::sqlite {

/// What SQLite finds wrong with the pages, tables and indexes of a library, in its own words; at
/// most a hundred lines. Throws Cancelled.
[[nodiscard]] std::vector<std::string> integrityFaults(Database& database, Progress& progress);

/// What the tables, columns and indexes of a library of the current version lack, or have beside
/// those of `model`. The order of columns is free.
[[nodiscard]] std::vector<std::string> shapeFaults(Database& database, const LibraryModel& model);

}  // namespace elmworth::sqlite
