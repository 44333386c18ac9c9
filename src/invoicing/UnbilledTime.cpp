// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/UnbilledTime.h"

#include "records/TimeEntry.h"

namespace elmworth {

std::unordered_map<PersistentID, UnbilledTime> unbilledTimeByProject(UnitOfWork& context) {
    std::unordered_map<PersistentID, UnbilledTime> byProject;
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

}  // namespace elmworth
