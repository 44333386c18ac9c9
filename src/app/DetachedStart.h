// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <vector>

#include "command/CommandLine.h"

namespace elmworth {

/// The argument that tells the application that its starter waits for it.
inline constexpr const char* detachedSwitch = "--detached";

/// The argument that tells the application that its starter's standard error is a terminal.
inline constexpr const char* terminalSwitch = "--in-terminal";

/// Starts the program called `name` that stands beside this one in a session of its own, so that
/// it outlives the terminal, and waits until it is ready or has ended. The result is empty when it
/// is ready, else its exit status with what it wrote to standard error.
[[nodiscard]] CommandResult startDetached(const std::string& name,
                                          std::vector<std::string> arguments);

/// Tells the starter of this process that it is ready, and lets go of it. Only for a process that
/// was given `detachedSwitch`.
void tellStarterReady();

/// Ends standard error: what was written to it is all that there is to be read.
void endStandardError();

}  // namespace elmworth
