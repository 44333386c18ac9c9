// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace elmworth {

/// The file called `name` beside the running program, or in the folder in which an installation
/// keeps what people don't start themselves.
[[nodiscard]] std::filesystem::path siblingPath(const std::string& name);

/// Makes this process the program called `name` that stands beside it. Returns only on failure,
/// with the exit status, after a line on standard error.
int execSibling(const std::string& name, const std::vector<std::string>& arguments);

}  // namespace elmworth
