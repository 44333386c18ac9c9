// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/store/ModelContext.h"

#include <gtest/gtest.h>

#include "core/store/LiveQuery.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::TestLibrary;

TEST(ModelContext, savedRecordsAreThereAfterReopening) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    const auto project = library.addProject("Website", client);
    const auto entry = library.addEntry(project, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
    entry->notes = "Landing page";
    library.context().save();
    const auto id = entry->persistentModelID();

    library.reopen();
    const auto read = library.context().record<TimeEntry>(id);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->start.get(), at("2026-03-01T09:00Z"));
    EXPECT_EQ(read->end.get(), at("2026-03-01T10:00Z"));
    EXPECT_EQ(read->notes.get(), "Landing page");
    EXPECT_EQ(read->project->name.get(), "Website");
    EXPECT_EQ(read->project->client->name.get(), "Acme");
}

TEST(ModelContext, aStoredRecordHasOneObject) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    library.context().save();
    EXPECT_EQ(library.context().fetch<Client>().front(), client);
    EXPECT_EQ(library.context().record<Client>(client->persistentModelID()), client);
}

TEST(ModelContext, fetchSeesUnsavedChanges) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    const auto project = library.addProject("Website", client);
    library.context().save();
    project->isArchived = true;
    const auto added = library.addProject("App", client);

    const FetchDescriptor<Project> active{.predicate = key<&Project::isArchived>() == false};
    EXPECT_EQ(library.context().fetch(active), std::vector{added});
    EXPECT_EQ(library.context().fetchCount(active), 1U);
}

TEST(ModelContext, rollbackRestoresTheValuesOfTheLastSave) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    const auto project = library.addProject("Website", client);
    library.context().save();
    client->name = "Globex";
    library.context().deleteRecord(project);
    const auto added = library.addClient("Initech");

    library.context().rollback();
    EXPECT_EQ(client->name.get(), "Acme");
    EXPECT_FALSE(project->isDeleted());
    EXPECT_EQ(added->modelContext(), nullptr);
    EXPECT_FALSE(library.context().hasChanges());
    EXPECT_EQ(client->projects(), std::vector{project});
}

TEST(ModelContext, deletingAClientWithInvoicesIsRefusedAtTheSave) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    const auto invoice = library.addInvoice("INV-2026-001", client);
    library.context().save();
    library.context().deleteRecord(client);
    EXPECT_THROW(library.context().save(), StoreError);
    library.context().rollback();
    EXPECT_EQ(library.context().fetch<Client>(), std::vector{client});
    EXPECT_EQ(invoice->client.get(), client);
}

TEST(ModelContext, deletingAnInvoiceSetsItsEntriesFree) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    const auto project = library.addProject("Website", client);
    const auto entry = library.addEntry(project, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
    const auto invoice = library.addInvoice("INV-2026-001", client);
    entry->invoice = invoice;
    library.context().save();
    library.context().deleteRecord(invoice);
    library.context().save();
    library.reopen();
    const auto read = library.context().fetch<TimeEntry>();
    ASSERT_EQ(read.size(), 1U);
    EXPECT_FALSE(read.front()->invoice);
}

TEST(ModelContext, aLiveQueryFiresOnceInATurn) {
    TestLibrary library;
    int calls = 0;
    std::size_t seen = 0;
    const LiveQuery<Client> query(library.context(), {}, [&](const auto& clients) {
        ++calls;
        seen = clients.size();
    });
    EXPECT_EQ(calls, 1);
    library.addClient("Acme");
    library.addClient("Globex");
    EXPECT_EQ(calls, 1);
    library.runLoop.turn();
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(seen, 2U);
}

}  // namespace
}  // namespace elmworth
