// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace elmworth::test {

/// A library file as any other SQLite program sees it. The library itself must be closed.
class RawDatabase {
 public:
    explicit RawDatabase(const std::filesystem::path& file) {
        sqlite3* database = nullptr;
        const int code = sqlite3_open_v2(file.c_str(), &database,
                                         SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, "unix");
        database_.reset(database);
        if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errstr(code));
    }

    [[nodiscard]] sqlite3* handle() const noexcept { return database_.get(); }

    /// Runs `sql` and gives SQLite's result code.
    int run(const std::string& sql) {
        return sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr);
    }

    /// The rows of a query, each as its columns joined by "|".
    [[nodiscard]] std::vector<std::string> rows(const std::string& sql) {
        std::vector<std::string> found;
        const int code = sqlite3_exec(database_.get(), sql.c_str(), &keepRow, &found, nullptr);
        if (code != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(database_.get()));
        return found;
    }

    /// What SQLite finds wrong with the file and with references between rows: nothing when sound.
    [[nodiscard]] std::vector<std::string> faults() {
        auto found = rows("PRAGMA integrity_check");
        std::erase(found, "ok");
        for (auto& row : rows("PRAGMA foreign_key_check")) found.push_back(std::move(row));
        return found;
    }

 private:
    static int keepRow(void* rows, int count, char** values, char** /*names*/) {
        std::string row;
        for (int i = 0; i < count; ++i) {
            if (i > 0) row += '|';
            row += values[i] == nullptr ? "NULL" : values[i];
        }
        static_cast<std::vector<std::string>*>(rows)->push_back(std::move(row));
        return 0;
    }

    struct Close {
        void operator()(sqlite3* database) const noexcept { sqlite3_close_v2(database); }
    };
    std::unique_ptr<sqlite3, Close> database_;
};

}  // namespace elmworth::test
