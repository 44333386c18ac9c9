// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/TimesheetArguments.h"

#include "command/RecordLookup.h"

namespace elmworth {

void TimesheetArguments::addTo(SubcommandSyntax command) {
    command.option("--period", period.period, "“This Week” (unless given), “Last Month” and so on")
        .typeName("PERIOD")
        .oneOf(periodNames());
    command.option("--from", period.from, "First day").typeName("DAY");
    command.option("--through", period.through, "Last day").typeName("DAY");
    command.option("--client", client, "Only this client's time").typeName("CLIENT");
    command.option("--project", project, "Only this project's time").typeName("PROJECT");
    command.flag("--unbilled", unbilledOnly, "Only time that is on no invoice yet");
    command.option("--search", search, "Only entries with this text in notes, project or client")
        .typeName("TEXT");
}

TimesheetFilter TimesheetArguments::filter(CommandEnvironment& environment) const {
    PeriodArguments given = period;
    if (given.isEmpty()) given.period = rawValue(DateRangePreset::thisWeek);
    TimesheetFilter filter;
    filter.range = given.interval(environment);
    filter.unbilledOnly = unbilledOnly;
    filter.search = search;
    if (!client.empty()) filter.client = findClient(environment.context, client);
    if (!project.empty()) filter.project = findProject(environment.context, project, client);
    return filter;
}

}  // namespace elmworth
