// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "BenchLibrary.h"

#include <map>
#include <utility>

#include "LibraryGenerator.h"

namespace elmworth::bench {

namespace {

namespace fs = std::filesystem;

/// Made once in a run, and only copied from then on.
const fs::path& generatedFolder(std::int64_t entries, Instant now) {
    static std::map<std::pair<std::int64_t, Instant>, test::TemporaryFolder> folders;
    const bool isNew = !folders.contains({entries, now});
    const auto& folder = folders[{entries, now}].path();
    if (isNew) {
        generateLibrary(folder / "library.sqlite",
                        LibraryShape::ofEntries(static_cast<std::size_t>(entries), now));
    }
    return folder;
}

}  // namespace

Instant libraryNow() {
    using namespace std::chrono;
    return sys_days(2026y / 3 / 18) + 10h;
}

Calendar libraryCalendar() {
    return {Locale("en_GB"), "Europe/Berlin"};
}

void copyLibrary(std::int64_t entries, Instant now, const fs::path& folder) {
    fs::copy(generatedFolder(entries, now), folder, fs::copy_options::recursive);
}

}  // namespace elmworth::bench
