// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <vector>

#include "command/CommandLine.h"

namespace elmworth {

/// Carries out a command that was given in a terminal: in the running application if there is one,
/// else on the library itself, under its lock. Waits up to five seconds for a lock that another
/// command has.
///
/// `painter` is null in a process that cannot draw. Such a process gives absent for a command that
/// draws and that no running application takes: another program has to carry it out.
[[nodiscard]] std::optional<CommandResult> runTerminalCommand(
    const CommandLine& commandLine, const std::vector<std::string>& arguments,
    InvoicePainter* painter);

/// Writes a result to the process's standard output and error, and gives its exit status.
int printResult(const CommandResult& result);

}  // namespace elmworth
