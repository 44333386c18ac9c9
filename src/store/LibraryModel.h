// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <span>
#include <string_view>

#include "store/Schema.h"

namespace elmworth {

namespace sqlite {
class Database;
}

/// How a library of one version becomes one of the next: by SQL statements, by a function, or by
/// the statements and then the function. Runs in a transaction, with foreign keys off, so that a
/// table can be made anew; opens and ends no transaction, and leaves the version alone.
struct MigrationStep {
    int from;
    int to;
    std::string_view sql = {};
    void (*change)(sqlite::Database&) = nullptr;  ///< throws StoreError
};

/// What a library consists of: its record types, the version of their schema, and the steps that
/// lead to it from older ones.
struct LibraryModel {
    /// Parents before those that point to them; the ordinal of each is its place here.
    std::span<const RecordSchema* const> types;
    int version;
    std::span<const MigrationStep> steps = {};

    /// Whether a library of `stored` is of the current version, or steps lead from it there.
    [[nodiscard]] bool canRead(int stored) const;
    /// The step that begins at `stored`; null for none.
    [[nodiscard]] const MigrationStep* stepFrom(int stored) const;
};

}  // namespace elmworth
