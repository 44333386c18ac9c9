// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <sqlite3.h>

namespace elmworth::test {

/// Lets every statement fail when a test says so, as on a damaged disk, on connections opened
/// during its life. One at a time.
class FailingReads {
 public:
    FailingReads() { sqlite3_auto_extension(reinterpret_cast<void (*)()>(&attach)); }
    FailingReads(const FailingReads&) = delete;
    FailingReads& operator=(const FailingReads&) = delete;
    ~FailingReads() {
        readsFail = false;
        sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(&attach));
    }

    static void fail() noexcept { readsFail = true; }
    static void heal() noexcept { readsFail = false; }

 private:
    static int attach(sqlite3* database, const char** /*error*/, const void* /*api*/) {
        sqlite3_progress_handler(
            database, 1, [](void* /*context*/) { return readsFail ? 1 : 0; }, nullptr);
        return SQLITE_OK;
    }

    static inline bool readsFail = false;
};

}  // namespace elmworth::test
