// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "command/CommandSyntax.h"

namespace elmworth {

/// Prints what the timer shows now: the whole status as JSON, or `sentence` as text.
void printTimer(CommandEnvironment& environment, CommandOutput& output,
                const std::string& sentence);

/// The seconds tracked in the day or week that it is for whoever gave the command.
[[nodiscard]] double trackedSeconds(const CommandEnvironment& environment, CalendarUnit unit);

/// The status document of the timer; `snapshotProblem` is left out when it is empty.
[[nodiscard]] std::string timerJSON(CommandEnvironment& environment,
                                    const std::string& snapshotProblem = {});

/// Throws StoreError when the last save of `context` failed and a second try fails as well: the
/// timer itself goes on with its changes in memory, but a command must not claim what is not on
/// disk.
void requireSaved(UnitOfWork& context);

/// Throws StoreError when the running entry can't be looked up: the timer itself takes a damaged
/// library for one in which nothing runs, but a command must not say so.
void requireReadable(CommandEnvironment& environment);

}  // namespace elmworth
