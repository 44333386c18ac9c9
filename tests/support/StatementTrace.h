// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <sqlite3.h>

#include <string>
#include <utility>
#include <vector>

namespace elmworth::test {

/// The SQL of all statements that run on connections opened during its life. One at a time.
class StatementTrace {
 public:
    StatementTrace() {
        statements().clear();
        sqlite3_auto_extension(reinterpret_cast<void (*)()>(&attach));
    }
    StatementTrace(const StatementTrace&) = delete;
    StatementTrace& operator=(const StatementTrace&) = delete;
    ~StatementTrace() { sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(&attach)); }

    /// What ran since the last call.
    [[nodiscard]] static std::vector<std::string> take() { return std::exchange(statements(), {}); }

 private:
    static std::vector<std::string>& statements() {
        static std::vector<std::string> all;
        return all;
    }
    static int attach(sqlite3* database, const char** /*error*/, const void* /*api*/) {
        return sqlite3_trace_v2(database, SQLITE_TRACE_STMT, &note, nullptr);
    }
    static int note(unsigned /*event*/, void* /*context*/, void* statement, void* /*text*/) {
        statements().emplace_back(sqlite3_sql(static_cast<sqlite3_stmt*>(statement)));
        return 0;
    }
};

}  // namespace elmworth::test
