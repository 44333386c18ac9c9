// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include "invoicing/InvoiceBuilder.h"
#include "invoicing/UnbilledTime.h"
#include "support/RawDatabase.h"
#include "support/StatementTrace.h"
#include "support/TestTimer.h"

namespace elmworth {
namespace {

using test::RawDatabase;
using test::StatementTrace;
using test::TestTimer;
using Plan = std::vector<std::string>;

/// A library with some of everything.
struct SmallLibrary {
    SmallLibrary() {
        auto& library = timer.library;
        client = library.addClient("Acme");
        project = library.addProject("Website", client);
        invoice = library.addInvoice("1", client);
        entry = library.addEntry(project, TestTimer::today("07:00"), TestTimer::today("08:00"));
        entry->invoice = invoice;
        library.addEntry(project, TestTimer::today("08:00"), std::nullopt);
        library.context().save();
    }

    const StatementTrace trace;
    TestTimer timer;
    Ref<Client> client;
    Ref<Project> project;
    Ref<Invoice> invoice;
    Ref<TimeEntry> entry;
};

struct Question {
    const char* name;
    void (*ask)(SmallLibrary&);
    Plan plan;
    std::size_t statement = 0;  ///< which of those that answer it
};

const Question questions[] = {
    {"theOpenEntriesAtTheStart",
     [](SmallLibrary& library) { library.timer.service->restore(); },
     {"SCAN TimeEntry USING INDEX TimeEntryRunning"}},
    {"theRecentProjects",
     [](SmallLibrary& library) { (void)library.timer.service->recentProjects(1); },
     {"SCAN TimeEntry USING INDEX TimeEntryByStart"}},
    {"theEntryToContinue",
     [](SmallLibrary& library) { (void)library.timer.service->lastContinuableEntry(); },
     {"SEARCH TimeEntry USING INDEX TimeEntryByEnd (end>?)"}},
    {"theTotals",
     [](SmallLibrary& library) { (void)library.timer.service->todaySeconds(); },
     {"MULTI-INDEX OR", "INDEX 1",
      "SEARCH TimeEntry USING INDEX TimeEntryByStart (start>? AND start<?)", "INDEX 2",
      "SEARCH TimeEntry USING INDEX TimeEntryRunning (start<?)"}},
    {"theUnbilledEntries",
     [](SmallLibrary& library) {
         const InvoiceBuilder builder{library.timer.library.context(), currentInstant,
                                      library.timer.calendar};
         (void)builder.unbilledEntries(library.client, TestTimer::today("00:00"),
                                       TestTimer::today("23:00"));
     },
     {"SEARCH TimeEntry USING INDEX TimeEntryByProject (project=? AND start>? AND start<?)"},
     1},
    {"theFirstUnbilledEntry",
     [](SmallLibrary& library) {
         (void)firstUnbilledStart(library.timer.library.context(), library.client,
                                  TestTimer::today("23:00"));
     },
     {"SEARCH TimeEntry USING INDEX TimeEntryUnbilledByProject (project=? AND end>?)"},
     1},
    {"theUseOfANumber",
     [](SmallLibrary& library) {
         (void)library.timer.library.context().fetchCount(
             Query<Invoice>{.predicate = key<&Invoice::number>() == std::string("1")});
     },
     {"SEARCH Invoice USING COVERING INDEX sqlite_autoindex_Invoice_2 (number=?)"}},
    {"theEntriesOfAnInvoice",
     [](SmallLibrary& library) { (void)library.invoice->entries(); },
     {"SEARCH TimeEntry USING INDEX TimeEntryByInvoice (invoice=?)"}},
    {"theEntriesOfAProject",
     [](SmallLibrary& library) { (void)library.project->entries(); },
     {"SEARCH TimeEntry USING INDEX TimeEntryByProject (project=?)"}},
    {"theTimeOfAProject",
     [](SmallLibrary& library) {
         library.project->budgetHours = 1;
         (void)library.project->budgetFraction(TestTimer::today("09:00"));
     },
     {"SEARCH TimeEntry USING COVERING INDEX TimeEntryByProject (project=?)"}},
    {"theUnbilledTimeOfAProject",
     [](SmallLibrary& library) {
         (void)unbilledTime(library.timer.library.context(), library.project);
     },
     {"SEARCH TimeEntry USING INDEX TimeEntryUnbilledByProject (project=? AND end>?)"}},
    {"theProjectsOfAClient",
     [](SmallLibrary& library) { (void)library.client->projects(); },
     {"SEARCH Project USING INDEX ProjectByClient (client=?)"}},
    {"theInvoicesOfAClient",
     [](SmallLibrary& library) { (void)library.client->invoices(); },
     {"SEARCH Invoice USING INDEX InvoiceByClient (client=?)"}},
};

class QueryPlan : public testing::TestWithParam<Question> {};

TEST_P(QueryPlan, usesAnIndexAndSortsNothing) {
    SmallLibrary library;
    (void)StatementTrace::take();
    GetParam().ask(library);
    const auto statements = StatementTrace::take();
    ASSERT_GT(statements.size(), GetParam().statement);
    const std::string& sql = statements[GetParam().statement];
    library.timer.service.reset();
    library.timer.library.close();

    RawDatabase raw(library.timer.library.file());
    Plan plan;
    for (const auto& row : raw.rows("EXPLAIN QUERY PLAN " + sql))
        plan.push_back(row.substr(row.rfind('|') + 1));
    EXPECT_EQ(plan, GetParam().plan) << sql;
}

INSTANTIATE_TEST_SUITE_P(Questions, QueryPlan, testing::ValuesIn(questions),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace elmworth
