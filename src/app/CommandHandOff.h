// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "command/CommandLine.h"

namespace elmworth {

/// The names under which the running application answers on the session bus.
namespace bus {
inline constexpr const char* service = "org.elmworth.Elmworth";
inline constexpr const char* object = "/org/elmworth/Elmworth";
inline constexpr const char* commandInterface = "org.elmworth.Commands";
}  // namespace bus

/// Hands a command to the running application, which carries it out on the library that it has
/// open. Absent when no application answers on the session bus.
[[nodiscard]] std::optional<CommandResult> handOff(const std::vector<std::string>& arguments);

/// Asks the running application to come to the front. False when none answers.
[[nodiscard]] bool activateRunningApplication();

}  // namespace elmworth
