// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "command/CommandEnvironment.h"

namespace elmworth {

/// What a command gave: bytes for standard output, text for standard error, and the exit status: 0
/// done, 1 failed, 2 wrong usage.
struct CommandResult {
    std::string output;
    std::string errors;
    int exitStatus = 0;
};

/// A command line that has been read but not carried out.
struct CommandLine {
    /// Set when there is nothing to carry out: a help text, the version, or wrong usage.
    std::optional<CommandResult> answer;

    /// What to do; empty when there is an answer, or no command at all.
    std::function<void(CommandEnvironment&, CommandResult&)> action;

    /// What to do with the file of the library, which is not opened; empty for all other commands.
    std::function<int(FileCommandEnvironment&, CommandResult&)> fileAction;

    bool isDemo = false;        ///< works on a fresh demo library in memory
    bool needsPainter = false;  ///< draws a PDF
    bool countsPages = false;   ///< counts an invoice's pages, on which a logo takes room
    bool readsStandardInput = false;
    bool onlyLooks = false;  ///< makes no library where there is none, and then gives nothing
    /// The application's action that it asks for, such as "panel"; there is no other then.
    std::string opens;

    /// Whether there is something to carry out.
    [[nodiscard]] bool isCommand() const { return action || fileAction; }
};

/// Reads the arguments behind the program's name. Touches no library.
[[nodiscard]] CommandLine parseCommandLine(const std::vector<std::string>& arguments);

/// Carries out `commandLine`. Every failure becomes a line on standard error and an exit status.
[[nodiscard]] CommandResult runCommand(const CommandLine& commandLine,
                                       CommandEnvironment& environment);

/// Carries out a `commandLine` that has a `fileAction`. Every failure becomes a line on standard
/// error and an exit status.
[[nodiscard]] CommandResult runFileCommand(const CommandLine& commandLine,
                                           FileCommandEnvironment& environment);

/// The result of a command that failed before it could begin.
[[nodiscard]] CommandResult failedCommand(const std::string& message);

}  // namespace elmworth
