// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "command/CommandLine.h"

namespace elmworth {

/// Carries out a command that was given in a terminal: in the running application if there is one,
/// else on the library itself, under its lock. Waits up to five seconds for a lock that another
/// command has. Absent when the command draws and there is no `painter`; nothing has been done
/// then.
[[nodiscard]] std::optional<CommandResult> runTerminalCommand(
    const CommandLine& commandLine, const std::vector<std::string>& arguments,
    InvoicePainter* painter);

/// As `runTerminalCommand`, with the result printed. A process without a painter becomes the
/// program that has one where it is needed: a GUI library takes longer to load than a command takes
/// to run. Gives the exit status.
int finishTerminalCommand(const CommandLine& commandLine, const std::vector<std::string>& arguments,
                          InvoicePainter* painter);

/// Writes a result to the process's standard output and error, and gives its exit status.
int printResult(const CommandResult& result);

}  // namespace elmworth
