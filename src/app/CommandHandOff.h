// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/GatheredInput.h"
#include "command/CommandLine.h"

namespace elmworth {

/// Hands a command to the running application, which carries it out on the library that it has
/// open. Absent when no application answers on the session bus. While it works, it watches whether
/// this process is still there, and tells its progress on this process's standard error. What was
/// written to the command is in `input`.
[[nodiscard]] std::optional<CommandResult> handOff(const std::vector<std::string>& arguments,
                                                   const GatheredInput& input);

}  // namespace elmworth
