// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/UnbilledTime.h"

#include "records/Project.h"
#include "records/TimeEntry.h"

namespace elmworth {

UnbilledByProject unbilledTimeByProject(UnitOfWork& context) {
    UnbilledByProject byProject;
    // The order leads SQLite to the index that holds just these entries, and not all that ended.
    for (const auto& entry : context.fetch(Query<TimeEntry>{
             .predicate = key<&TimeEntry::end>() != absent && key<&TimeEntry::invoice>() == absent,
 .sortBy = {sortedBy<&TimeEntry::start>()},
         })) {
        const auto project = entry->project.id();
        if (!project) continue;
        const double seconds = secondsBetween(entry->start, *entry->end.get());
        byProject[*project] +=
            {seconds, InvoiceCalculator::amountCents(seconds, entry->effectiveRateCents())};
    }
    return byProject;
}

ClientSummary clientSummary(const Ref<Client>& client, const UnbilledByProject& unbilled) {
    ClientSummary summary{client, 0, {}};
    for (const auto& project : client->projects()) {
        if (!project->isArchived) ++summary.activeProjects;
        const auto found = unbilled.find(project->id());
        if (found != unbilled.end()) summary.unbilled += found->second;
    }
    return summary;
}

std::vector<ClientSummary> allClientSummaries(UnitOfWork& context) {
    const auto unbilled = unbilledTimeByProject(context);
    std::vector<ClientSummary> summaries;
    for (const auto& client : context.fetch(
             Query<Client>{.sortBy = {sortedBy<&Client::name>(
                               SortOrder::forward, SortComparison::localizedStandard)}})) {
        summaries.push_back(clientSummary(client, unbilled));
    }
    return summaries;
}

}  // namespace elmworth
