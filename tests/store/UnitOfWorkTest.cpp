// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/UnitOfWork.h"

#include <gtest/gtest.h>

#include "support/Instants.h"
#include "support/StatementTrace.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::StatementTrace;
using test::TestLibrary;

TEST(UnitOfWork, savedRecordsAreThereAfterReopening) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    const auto project = library.addProject("Website", client);
    const auto entry = library.addEntry(project, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
    entry->notes = "Landing page";
    library.context().save();
    const auto id = entry->id();

    library.reopen();
    const auto read = library.context().record<TimeEntry>(id);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->start.get(), at("2026-03-01T09:00Z"));
    EXPECT_EQ(read->end.get(), at("2026-03-01T10:00Z"));
    EXPECT_EQ(read->notes.get(), "Landing page");
    EXPECT_EQ(read->project->name.get(), "Website");
    EXPECT_EQ(read->project->client->name.get(), "Acme");
}

TEST(UnitOfWork, everyFieldOfAnInvoiceIsStored) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    const auto invoice = library.addInvoice("INV-2026-001", client);
    invoice->issueDate = at("2026-03-01T09:00Z");
    invoice->dueDate = at("2026-03-15T09:00Z");
    invoice->periodStart = at("2026-02-01T00:00Z");
    invoice->periodEnd = at("2026-03-01T00:00Z");
    invoice->taxRateBasisPoints = -25;
    invoice->statusRaw = "paid";
    invoice->roundingMinutes = 15;
    invoice->notes = std::string(
        "Gr\xC3\xBC\xC3\x9F"
        "e\0!",
        9);
    invoice->paidAt = at("2026-03-10T12:00Z");
    invoice->showsEntryDetails = false;
    invoice->businessSnapshot = Blob{std::string("\0\xFF{}", 4)};
    invoice->currencyCode = "EUR";
    const auto written = invoice->recordSchema().fields;
    std::vector<Value> values;
    for (const auto& field : written) values.push_back(field.read(*invoice));
    library.context().save();

    library.reopen();
    const auto read = library.context().fetch<Invoice>().at(0);
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(read->recordSchema().fields[i].read(*read), values[i]) << written[i].name;
    }
}

TEST(UnitOfWork, anEmptyBlobIsNotAbsent) {
    TestLibrary library;
    const auto invoice = library.addInvoice("1", nullptr);
    invoice->businessSnapshot = Blob{};
    library.context().save();
    library.reopen();
    EXPECT_TRUE(library.context().fetch<Invoice>().at(0)->businessSnapshot.get().has_value());
}

TEST(UnitOfWork, unsavedRecordsAreGoneAfterReopening) {
    TestLibrary library;
    library.addClient("Acme");
    library.reopen();
    EXPECT_TRUE(library.context().fetch<Client>().empty());
}

TEST(UnitOfWork, aNewRecordIsNotInTheLibraryUntilItIsInserted) {
    TestLibrary library;
    const auto client = std::make_shared<Client>("Acme");
    client->email = "office@acme.example";
    EXPECT_EQ(client->unitOfWork(), nullptr);
    EXPECT_FALSE(library.context().hasChanges());
    EXPECT_TRUE(library.context().fetch<Client>().empty());
    library.context().insert(client);
    EXPECT_EQ(client->unitOfWork(), &library.context());
    EXPECT_EQ(library.context().fetch<Client>(), std::vector{client});
}

TEST(UnitOfWork, insertingARecordTwiceDoesNothing) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    library.context().insert(client);
    library.context().save();
    library.context().insert(client);
    EXPECT_FALSE(library.context().hasChanges());
    EXPECT_EQ(library.context().fetchCount<Client>(), 1U);
}

TEST(UnitOfWork, anAssignmentOfTheSameValueIsNoChange) {
    TestLibrary library;
    const auto project = library.addProject("Website", library.addClient("Acme"));
    library.context().save();
    project->name = "Website";
    project->client = project->client.get();
    EXPECT_FALSE(library.context().hasChanges());
}

TEST(UnitOfWork, aSaveWithoutChangesRunsNoStatement) {
    const StatementTrace trace;
    TestLibrary library;
    library.addClient("Acme");
    library.context().save();
    EXPECT_FALSE(StatementTrace::take().empty());
    library.context().save();
    EXPECT_TRUE(StatementTrace::take().empty());
}

TEST(UnitOfWork, aStoredRecordHasOneObject) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    const auto project = library.addProject("Website", client);
    library.context().save();
    EXPECT_EQ(library.context().fetch<Client>().front(), client);
    EXPECT_EQ(library.context().record<Client>(client->id()), client);
    library.reopen();
    const auto readProject = library.context().fetch<Project>().at(0);
    const auto readClient = library.context().fetch<Client>().at(0);
    EXPECT_EQ(readProject->client.get(), readClient);
    EXPECT_EQ(readClient->projects(), std::vector{readProject});
}

TEST(UnitOfWork, anObjectThatNobodyRefersToIsLetGoAndReadAgain) {
    TestLibrary library;
    auto client = library.addClient("Acme");
    library.context().save();
    const auto id = client->id();
    const std::weak_ptr<Client> released = std::exchange(client, nullptr);
    EXPECT_TRUE(released.expired());
    const auto read = library.context().record<Client>(id);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->name.get(), "Acme");
}

TEST(UnitOfWork, anObjectWithUnsavedChangesIsKept) {
    TestLibrary library;
    auto client = library.addClient("Acme");
    library.context().save();
    client->name = "Globex";
    const std::weak_ptr<Client> kept = std::exchange(client, nullptr);
    EXPECT_FALSE(kept.expired());
    library.context().save();
    EXPECT_TRUE(kept.expired());
    EXPECT_EQ(library.context().fetch<Client>().at(0)->name.get(), "Globex");
}

TEST(UnitOfWork, aRecordKeepsThoseItPointsToAndLetsThemGoWithItself) {
    TestLibrary library;
    library.addEntry(library.addProject("Website", library.addClient("Acme")),
                     at("2026-03-01T09:00Z"), std::nullopt);
    library.context().save();
    auto entry = library.context().fetch<TimeEntry>().at(0);
    const std::weak_ptr<Client> client = entry->project->client.get();
    EXPECT_FALSE(client.expired());
    entry.reset();
    EXPECT_TRUE(client.expired());
}

TEST(UnitOfWork, aRelationshipIsReadOnFirstUse) {
    const StatementTrace trace;
    TestLibrary library;
    library.addProject("Website", library.addClient("Acme"));
    library.context().save();
    const auto project = library.context().fetch<Project>().at(0);
    (void)StatementTrace::take();
    EXPECT_TRUE(project->client);
    EXPECT_TRUE(project->client.id());
    EXPECT_TRUE(StatementTrace::take().empty());
    EXPECT_EQ(project->client->name.get(), "Acme");
    EXPECT_EQ(StatementTrace::take().size(), 1U);
    EXPECT_EQ(project->client->name.get(), "Acme");
    EXPECT_TRUE(StatementTrace::take().empty());
}

TEST(UnitOfWork, relationshipsShowUnsavedChanges) {
    TestLibrary library;
    const auto acme = library.addClient("Acme");
    const auto globex = library.addClient("Globex");
    const auto moved = library.addProject("Website", acme);
    const auto stays = library.addProject("App", acme);
    library.context().save();
    moved->client = globex;
    const auto added = library.addProject("Shop", globex);
    EXPECT_EQ(acme->projects(), std::vector{stays});
    EXPECT_EQ(globex->projects(), (std::vector{moved, added}));
    library.context().deleteRecord(stays);
    EXPECT_TRUE(acme->projects().empty());
}

TEST(UnitOfWork, recordsOutliveTheirContext) {
    Ref<Project> project;
    {
        TestLibrary library;
        project = library.addProject("Website", library.addClient("Acme"));
        library.context().save();
    }
    EXPECT_EQ(project->unitOfWork(), nullptr);
    project->name = "App";
    EXPECT_TRUE(project->entries().empty());
}

TEST(UnitOfWork, twoLibrariesInMemorySeeNothingOfEachOther) {
    test::ManualRunLoop runLoop;
    Library first({}, runLoop);
    Library second({}, runLoop);
    first.mainContext().insert(std::make_shared<Client>("Acme"));
    first.mainContext().save();
    EXPECT_EQ(first.mainContext().fetchCount<Client>(), 1U);
    EXPECT_EQ(second.mainContext().fetchCount<Client>(), 0U);
}

TEST(UnitOfWork, identitiesOfOneProcessKeepTheOrderOfTheirCreation) {
    auto last = PersistentID::make();
    for (int i = 0; i < 10000; ++i) {
        const auto next = PersistentID::make();
        ASSERT_LT(last, next);
        last = next;
    }
    EXPECT_EQ(last.string().size(), 36U);
    EXPECT_EQ(last.string()[14], '7');
}

}  // namespace
}  // namespace elmworth
