// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/TimeEntry.h"

#include "records/Invoice.h"
#include "records/Project.h"

namespace elmworth {

TimeEntry::TimeEntry(Instant startInstant, Ref<Project> owner) {
    start = startInstant;
    project = std::move(owner);
}

double TimeEntry::duration(Instant now) const {
    return secondsBetween(start, end->value_or(now));
}

std::int64_t TimeEntry::effectiveRateCents() const {
    if (billedRateCents.get()) return *billedRateCents.get();
    const auto& owner = project.get();
    return owner ? owner->effectiveRateCents() : 0;
}

const RecordSchema& TimeEntry::schema() {
    static constexpr FieldDescription fields[] = {
        attribute<&TimeEntry::start>("start"),
        attribute<&TimeEntry::end>("end"),
        attribute<&TimeEntry::notes>("notes"),
        toOne<&TimeEntry::project>("project"),
        toOne<&TimeEntry::invoice>("invoice"),
        attribute<&TimeEntry::billedRateCents>("billedRateCents"),
    };
    static constexpr IndexDescription indexes[] = {
        {"TimeEntryByStart", {"start"}},
        {"TimeEntryByEnd", {"end", "start"}, "end"},
        {"TimeEntryRunning", {"start"}, {}, "end"},
        {"TimeEntryUnbilled", {"start"}, "end", "invoice"},
        {"TimeEntryUnbilledByProject", {"project", "end", "start"}, "end", "invoice"},
        {"TimeEntryByProject", {"project", "start", "end"}},
        {"TimeEntryByInvoice", {"invoice"}, "invoice"},
    };
    static constexpr RecordSchema schema{"TimeEntry", 2,       fields,
                                         {},          indexes, &makeRecord<TimeEntry>};
    return schema;
}

}  // namespace elmworth
