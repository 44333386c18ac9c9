// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/LibrarySchema.h"

#include <iterator>

#include "records/Client.h"
#include "records/Invoice.h"
#include "records/Project.h"
#include "records/TimeEntry.h"

namespace elmworth {

namespace {

/// Every version that has been in the field leads on to the next, for good. A library is never read
/// by statements of a version that it does not have.
///
/// To add one: append a step, and put a library of the former version beside those in
/// tests/data/library. A field that is added must be optional or `mayBeMissing`, so that the
/// backups of before can be read.
constexpr MigrationStep steps[] = {
    // The entries that reach into a period, and the time of a project, are found in an index alone.
    {1'00'00, 1'01'00, R"(
DROP INDEX "TimeEntryByEnd";
CREATE INDEX "TimeEntryByEnd" ON "TimeEntry"("end", "start") WHERE "end" IS NOT NULL;
DROP INDEX "TimeEntryByProject";
CREATE INDEX "TimeEntryByProject" ON "TimeEntry"("project", "start", "end");
)"},
    // The unbilled time of a project is found without walking all that it ever had.
    {1'01'00, 1'02'00, R"(
CREATE INDEX "TimeEntryUnbilledByProject" ON "TimeEntry"("project", "end", "start") WHERE "end" IS NOT NULL AND "invoice" IS NULL;
)"},
};

}  // namespace

const LibraryModel& librarySchema() {
    static const RecordSchema* const types[] = {&Client::schema(), &Project::schema(),
                                                &TimeEntry::schema(), &Invoice::schema()};
    static const LibraryModel model{types, std::end(steps)[-1].to, steps};
    return model;
}

}  // namespace elmworth
