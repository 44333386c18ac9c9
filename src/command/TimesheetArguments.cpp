// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/TimesheetArguments.h"

#include "command/RecordLookup.h"

namespace elmworth {

void TimesheetArguments::addTo(CLI::App* command) {
    command
        ->add_option("--period", period.period,
                     "“This Week” (unless given), “Last Month” and so on")
        ->type_name("PERIOD");
    command->add_option("--from", period.from, "First day")->type_name("DAY");
    command->add_option("--through", period.through, "Last day")->type_name("DAY");
    command->add_option("--client", client, "Only this client's time")->type_name("CLIENT");
    command->add_option("--project", project, "Only this project's time")->type_name("PROJECT");
    command->add_flag("--unbilled", unbilledOnly, "Only time that is on no invoice yet");
    command
        ->add_option("--search", search, "Only entries with this text in notes, project or client")
        ->type_name("TEXT");
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
