// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/clients/ClientCardContent.h"

#include <tuple>

#include "records/Invoice.h"

namespace elmworth {

namespace {

void readProjects(ClientCardContent& content, UnitOfWork& context, ProjectTimes& times) {
    for (const auto& project : context.fetch(Query<Project>{
             .predicate = key<&Project::client>() == content.client,
   .sortBy = {sortedBy<&Project::name>(SortOrder::forward, SortComparison::localizedStandard)}})) {
        content.unbilled += times.unbilled(project);
        if (!project->isArchived) content.activeProjects.push_back(project);
    }
}

void readLastInvoice(ClientCardContent& content, UnitOfWork& context) {
    auto& last = content.lastInvoice;
    context.forEachValues<&Invoice::number, &Invoice::issueDate>(
        std::optional(key<&Invoice::client>() == content.client),
        [&](const PersistentID& /*invoice*/, const std::string& number, Instant issueDate) {
            // Of one day the one that is the first in the list of invoices.
            if (!last || std::tie(last->issueDate, last->number) < std::tie(issueDate, number))
                last = {number, issueDate};
        });
}

}  // namespace

ClientCardContent ClientCardContent::of(const Ref<Client>& client, UnitOfWork& context,
                                        ProjectTimes& times) {
    ClientCardContent content{client, {}, {}, {}};
    try {
        readProjects(content, context, times);
        readLastInvoice(content, context);
    } catch (const StoreError&) {
        return content;  // what was read shows; the library's faults are told elsewhere
    }
    return content;
}

}  // namespace elmworth
