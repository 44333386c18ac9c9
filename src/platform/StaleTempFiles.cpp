// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/StaleTempFiles.h"

#include <chrono>
#include <string>
#include <system_error>
#include <vector>

namespace elmworth {

namespace {

namespace fs = std::filesystem;

bool isStale(const fs::path& file, Instant before) {
    constexpr std::size_t randomLetters = 6;
    const std::string name = file.filename().string();
    if (!name.starts_with(temporaryFilePrefix)) return false;
    if (name.size() != temporaryFilePrefix.size() + randomLetters) return false;
    std::error_code error;
    if (!fs::is_regular_file(fs::symlink_status(file, error))) return false;
    const auto written = fs::last_write_time(file, error);
    return !error && std::chrono::file_clock::to_sys(written) < before;
}

}  // namespace

void removeStaleTempFiles(const fs::path& folder, Instant before) {
    std::vector<fs::path> stale;
    std::error_code error;
    for (fs::directory_iterator item(folder, error), end; !error && item != end;
         item.increment(error)) {
        if (isStale(item->path(), before)) stale.push_back(item->path());
    }
    for (const auto& file : stale) {
        std::error_code ignored;
        fs::remove(file, ignored);
    }
}

}  // namespace elmworth
