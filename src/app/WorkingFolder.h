// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <system_error>

namespace elmworth {

/// The current folder, to which relative paths are resolved. A deleted one still has a name, at
/// which every write fails; commands that need no path work there.
[[nodiscard]] inline std::filesystem::path workingFolder() {
    std::error_code ignored;
    return std::filesystem::read_symlink("/proc/self/cwd", ignored);
}

}  // namespace elmworth
