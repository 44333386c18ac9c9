// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandError.h"
#include "command/CommandSyntax.h"
#include "command/RecordLookup.h"
#include "command/TimerOutput.h"

namespace elmworth {

void addContinueCommand(CommandSyntax& syntax) {
    auto command = syntax.program.subcommand(
        "continue", "Starts the timer again on what ended last, with its notes");
    syntax.runs(command, [](CommandEnvironment& environment, CommandOutput& output) {
        requireReadable(environment);
        if (const auto& running = environment.timer.running()) {
            const auto& project = running->project.get();
            return printTimer(
                environment, output,
                "Already tracking " + (project ? fullName(*project) : NoProject::name) + ".");
        }
        const auto last = environment.timer.lastContinuableEntry();
        if (!last) throw CommandError("There is no entry to continue.");
        const auto entry = environment.timer.continueEntry(last);
        requireSaved(environment.context);
        printTimer(environment, output, "Tracking " + fullName(*entry->project.get()) + ".");
    });
}

}  // namespace elmworth
