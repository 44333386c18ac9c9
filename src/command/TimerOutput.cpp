// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/TimerOutput.h"

#include <algorithm>
#include <tuple>

#include "command/JSONOutput.h"
#include "platform/DurationFormat.h"
#include "records/Client.h"

namespace elmworth {

double trackedSeconds(const CommandEnvironment& environment, CalendarUnit unit) {
    const auto span = environment.calendar.interval(unit, environment.now());
    return span ? environment.timer.trackedSeconds(span->start, span->end) : 0;
}

std::string timerJSON(CommandEnvironment& environment, const std::string& snapshotProblem) {
    const auto& timer = environment.timer;
    JSONOutput json;
    json.beginObject();
    if (const auto& running = timer.running()) {
        const auto& project = running->project.get();
        // The clock may have been set back.
        const double seconds = std::max(0.0, secondsBetween(running->start, environment.now()));
        json.key("running");
        json.beginObject();
        if (project) json.field("project", project->name.get());
        const auto client = project ? project->client.get() : nullptr;
        if (client) json.field("client", client->name.get());
        json.field("notes", running->notes.get());
        json.field("start", running->start.get());
        json.field("seconds", seconds);
        json.field("elapsed", formatHoursMinutesSeconds(seconds));
        json.endObject();
    }
    json.field("todaySeconds", trackedSeconds(environment, CalendarUnit::day));
    json.field("thisWeekSeconds", trackedSeconds(environment, CalendarUnit::weekOfYear));
    if (!snapshotProblem.empty()) json.field("snapshotProblem", snapshotProblem);
    json.endObject();
    return json.document();
}

void printTimer(CommandEnvironment& environment, CommandOutput& output,
                const std::string& sentence) {
    if (output.isJSON()) {
        output.text += timerJSON(environment);
    } else {
        output.line(sentence);
    }
}

void requireSaved(UnitOfWork& context) {
    if (context.hasChanges()) context.save();
}

void requireReadable(CommandEnvironment& environment) {
    environment.timer.restoreUnread();
    if (environment.timer.running()) return;
    std::ignore =
        environment.context.fetch(Query<TimeEntry>{.predicate = key<&TimeEntry::end>() == absent});
}

}  // namespace elmworth
