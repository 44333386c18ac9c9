// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandSyntax.h"
#include "command/RecordLookup.h"
#include "command/TimerOutput.h"
#include "exchange/AutoBackup.h"
#include "platform/DateFormatter.h"
#include "platform/DurationFormat.h"
#include "platform/StandardFolders.h"
#include "platform/Text.h"

namespace elmworth {

namespace {

/// A snapshot that nothing could read, as a sentence; empty when there was none.
std::string snapshotProblem(CommandEnvironment& environment) {
    const auto failed = AutoBackup::failedCheck(environment.profiles.defaults());
    if (!failed) return {};
    const DateFormatter dates(DateFormatter::Style::mediumDate, environment.locale,
                              environment.calendar.zoneID());
    return "The snapshot of " + dates.string(failed->date) +
           " failed its check and was removed: " + oneLine(failed->reason) +
           " Earlier ones are in " + (dataFolder() / "Backups").string() + ".";
}

void printText(CommandEnvironment& environment, CommandOutput& output) {
    const auto& timer = environment.timer;
    if (const auto& running = timer.running()) {
        const auto& project = running->project.get();
        const DateFormatter times(DateFormatter::Style::shortTime, environment.locale,
                                  environment.calendar.zoneID());
        output.line(formatHoursMinutesSeconds(secondsBetween(running->start, environment.now())) +
                    "  " + (project ? fullName(*project) : NoProject::name));
        output.line("Since " + times.string(running->start) +
                    (running->notes->empty() ? "" : " · " + oneLine(running->notes.get())));
    } else {
        output.line("Nothing is running.");
    }
    output.line("Today " + formatHoursMinutes(trackedSeconds(environment, CalendarUnit::day)) +
                " · This week " +
                formatHoursMinutes(trackedSeconds(environment, CalendarUnit::weekOfYear)));
    if (const auto problem = snapshotProblem(environment); !problem.empty()) output.line(problem);
}

}  // namespace

void addStatusCommand(CommandSyntax& syntax) {
    auto command = syntax.program.subcommand(
        "status", "Shows what runs now, and the time of today and this week");
    syntax.runs(command, [](CommandEnvironment& environment, CommandOutput& output) {
        requireReadable(environment);
        if (output.isJSON()) {
            output.text += timerJSON(environment, snapshotProblem(environment));
        } else {
            printText(environment, output);
        }
    });
}

}  // namespace elmworth
