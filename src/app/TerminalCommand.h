// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "command/CommandLine.h"

namespace elmworth {

/// What a process can do beside working on a library that nobody else has open. The thin
/// executable can do neither: their libraries take longer to load than a command takes to run.
struct TerminalMeans {
    InvoicePainter* painter = nullptr;

    /// Hands a command to the running application; absent when none answers.
    std::optional<CommandResult> (*handOff)(const std::vector<std::string>& arguments) = nullptr;
};

/// What a process lacks that leaves a command to another program. Nothing has been done then.
enum class LackingMeans { painter, handOff };

/// Carries out a command that was given in a terminal: in the running application if there is one,
/// else on the library itself, under its lock. Waits up to five seconds for a lock that another
/// command has.
[[nodiscard]] std::variant<CommandResult, LackingMeans> runTerminalCommand(
    const CommandLine& commandLine, const std::vector<std::string>& arguments,
    const TerminalMeans& means);

/// As `runTerminalCommand`, with the result printed. Becomes the program that has the means which
/// this process lacks. Gives the exit status.
int finishTerminalCommand(const CommandLine& commandLine, const std::vector<std::string>& arguments,
                          const TerminalMeans& means);

/// Writes a result to the process's standard output and error, and gives its exit status.
int printResult(const CommandResult& result);

}  // namespace elmworth
