// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandError.h"
#include "command/CommandSyntax.h"
#include "command/RecordLookup.h"
#include "command/TimeArgument.h"
#include "command/TimerOutput.h"
#include "platform/DurationFormat.h"

namespace elmworth {

namespace {

/// Of what began at `start` and was stopped.
std::string whatWasKept(const TimeEntry& entry, Instant start, Instant now) {
    if (!entry.isDeleted()) return " after " + formatHoursMinutesSeconds(entry.duration(now)) + ".";
    if (start > now) {
        return ". The clock stands before its start, so nothing was kept: add the time with "
               "elmworth log.";
    }
    return ". It ran for less than a second, so nothing was kept.";
}

void stop(CommandEnvironment& environment, CommandOutput& output, const std::string& at) {
    auto& timer = environment.timer;
    const auto instant = at.empty() ? std::nullopt : std::optional(parseTime(at, environment));
    if (instant && *instant > environment.now()) {
        throw CommandError("The timer can't be stopped at a time in the future.");
    }
    requireReadable(environment);
    const auto entry = timer.running();
    if (!entry) return printTimer(environment, output, "Nothing is running.");
    const auto& project = entry->project.get();
    const std::string name = project ? fullName(*project) : NoProject::name;
    const Instant start = entry->start;
    if (instant) {
        timer.stop(*instant);
    } else {
        timer.stop();
    }
    requireSaved(environment.context);
    printTimer(environment, output,
               "Stopped " + name + whatWasKept(*entry, start, environment.now()));
}

}  // namespace

void addStopCommand(CommandSyntax& syntax) {
    auto command = syntax.program.subcommand("stop", "Stops the timer");
    auto at = std::make_shared<std::string>();
    command.option("--at", *at, "When it ended: 14:30 today, 2026-03-01T14:30, or with an offset")
        .typeName("TIME");
    syntax.runs(command, [at](CommandEnvironment& environment, CommandOutput& output) {
        stop(environment, output, *at);
    });
}

}  // namespace elmworth
