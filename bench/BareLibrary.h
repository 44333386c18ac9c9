// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <filesystem>
#include <string_view>

#include "platform/Instant.h"
#include "store/sqlite/Database.h"

namespace elmworth::bench {

/// A library opened with nothing but SQLite, set as the store sets it: what the machine itself
/// needs for the same work, beside which the program's figures stand.
class BareLibrary {
 public:
    explicit BareLibrary(const std::filesystem::path& file);

    void execute(const char* sql) { database_.execute(sql); }
    [[nodiscard]] sqlite::Statement prepare(std::string_view sql) const {
        return {database_.handle(), sql};
    }

    /// Moves the write-ahead log into the library, which a program that has the time does.
    void tidy();

 private:
    sqlite::Database database_;
};

/// All columns of an entry.
inline constexpr std::string_view selectEntries =
    R"(SELECT "id","start","end","notes","project","invoice","billedRateCents" FROM "TimeEntry")";

/// Reads every column of every row that `statement` gives, and counts the rows.
std::size_t readEntries(sqlite::Statement& statement);

/// Binds an instant as the store keeps it.
void bindInstant(sqlite::Statement& statement, int parameter, Instant instant);

}  // namespace elmworth::bench
