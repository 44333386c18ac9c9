// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandSyntax.h"
#include "command/OneLine.h"
#include "command/RecordLookup.h"
#include "command/TimerOutput.h"
#include "platform/DateFormatter.h"
#include "tracking/DurationFormat.h"

namespace elmworth {

namespace {

void printText(CommandEnvironment& environment, CommandOutput& output) {
    const auto& timer = environment.timer;
    if (const auto& running = timer.running()) {
        const auto& project = running->project.get();
        const DateFormatter times(DateFormatter::Style::shortTime, environment.locale,
                                  environment.calendar.zoneID());
        output.line(formatHoursMinutesSeconds(secondsBetween(running->start, environment.now())) +
                    "  " + (project ? fullName(*project) : "No project"));
        output.line("Since " + times.string(running->start) +
                    (running->notes->empty() ? "" : " · " + oneLine(running->notes.get())));
    } else {
        output.line("Nothing is running.");
    }
    output.line("Today " + formatHoursMinutes(trackedSeconds(environment, CalendarUnit::day)) +
                " · This week " +
                formatHoursMinutes(trackedSeconds(environment, CalendarUnit::weekOfYear)));
}

}  // namespace

void addStatusCommand(CommandSyntax& syntax) {
    auto command = syntax.program.subcommand(
        "status", "Shows what runs now, and the time of today and this week");
    syntax.carriesOut(command, [](CommandEnvironment& environment, CommandOutput& output) {
        requireReadable(environment);
        if (output.isJSON()) {
            output.text += timerJSON(environment);
        } else {
            printText(environment, output);
        }
    });
}

}  // namespace elmworth
