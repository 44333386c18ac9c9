// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/UnbilledTime.h"

#include <algorithm>

#include "records/Project.h"
#include "records/TimeEntry.h"

namespace elmworth {

UnbilledTime unbilledTime(UnitOfWork& context, const Ref<Project>& project,
                          const std::function<void(const PersistentID& entry)>& visit) {
    UnbilledTime time;
    const std::int64_t projectRate = project->effectiveRateCents();
    context.forEachValues<&TimeEntry::start, &TimeEntry::end, &TimeEntry::billedRateCents>(
        std::optional(key<&TimeEntry::project>() == project && key<&TimeEntry::end>() != absent &&
                      key<&TimeEntry::invoice>() == absent),
        [&](const PersistentID& entry, Instant start, const auto& end, const auto& ownRate) {
            const double seconds = secondsBetween(start, *end);
            time +=
                {seconds, InvoiceCalculator::amountCents(seconds, ownRate.value_or(projectRate))};
            if (visit) visit(entry);
        });
    return time;
}

UnbilledByProject unbilledTimeByProject(UnitOfWork& context) {
    UnbilledByProject byProject;
    for (const auto& project : context.fetch<Project>()) {
        bool hasAny = false;
        const auto time =
            unbilledTime(context, project, [&](const PersistentID& /*entry*/) { hasAny = true; });
        if (hasAny) byProject[project->id()] = time;
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

std::optional<Instant> firstUnbilledStart(UnitOfWork& context, const Ref<Client>& client,
                                          Instant before) {
    const CompleteReading reading(context);
    Instant first = before;
    for (const auto& project : client->projects()) {
        context.forEachValues<&TimeEntry::start>(
            std::optional(key<&TimeEntry::project>() == project &&
                          key<&TimeEntry::end>() != absent && key<&TimeEntry::invoice>() == absent),
            [&](const PersistentID& /*entry*/, Instant start) { first = std::min(first, start); });
    }
    reading.check();
    return first < before ? std::optional(first) : std::nullopt;
}

}  // namespace elmworth
