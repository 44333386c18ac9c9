// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include "store/UnitOfWork.h"
#include "support/FaultyVfs.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::TestLibrary;

TEST(Save, isOnTheDiskWhenItReturns) {
    const test::FaultyVfs disk;
    TestLibrary library;
    library.addClient("Acme");
    library.context().save();
    EXPECT_TRUE(test::FaultyVfs::isSynced());
}

TEST(Rollback, restoresTheValuesOfTheLastSave) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    const auto project = library.addProject("Website", client);
    library.context().save();
    client->name = "Globex";
    client->name = "Initech";
    project->client = nullptr;
    project->budgetHours = 10;

    library.context().rollback();
    EXPECT_EQ(client->name.get(), "Acme");
    EXPECT_EQ(project->client.get(), client);
    EXPECT_FALSE(project->budgetHours.get());
    EXPECT_FALSE(library.context().hasChanges());
}

TEST(Rollback, bringsDeletedRecordsBack) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    const auto project = library.addProject("Website", client);
    const auto entry = library.addEntry(project, at("2026-03-01T09:00Z"), std::nullopt);
    library.context().save();
    library.context().deleteRecord(client);
    EXPECT_TRUE(entry->isDeleted());

    library.context().rollback();
    EXPECT_FALSE(client->isDeleted());
    EXPECT_FALSE(entry->isDeleted());
    EXPECT_EQ(entry->unitOfWork(), &library.context());
    EXPECT_EQ(client->projects(), std::vector{project});
    EXPECT_EQ(project->entries(), std::vector{entry});
    entry->notes = "Still here";
    library.context().save();
    library.reopen();
    EXPECT_EQ(library.context().fetch<TimeEntry>().at(0)->notes.get(), "Still here");
}

TEST(Rollback, undoesChangesMadeBeforeTheDeletionOfTheSameRecord) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    library.context().save();
    client->name = "Globex";
    library.context().deleteRecord(client);
    library.context().rollback();
    EXPECT_EQ(client->name.get(), "Acme");
}

TEST(Rollback, linksEntriesToTheDeletedInvoiceAgain) {
    TestLibrary library;
    const auto invoice = library.addInvoice("1", library.addClient("Acme"));
    const auto entry = library.addEntry(nullptr, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
    entry->invoice = invoice;
    library.context().save();
    library.context().deleteRecord(invoice);
    EXPECT_FALSE(entry->invoice);
    library.context().rollback();
    EXPECT_EQ(entry->invoice.get(), invoice);
}

TEST(Rollback, dropsNewRecordsFromTheContext) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    const auto project = library.addProject("Website", client);
    library.context().rollback();
    EXPECT_EQ(client->unitOfWork(), nullptr);
    EXPECT_FALSE(client->isDeleted());
    EXPECT_TRUE(library.context().fetch<Client>().empty());
    client->name = "Globex";
    EXPECT_FALSE(library.context().hasChanges());
    library.context().insert(client);
    library.context().save();
    EXPECT_EQ(library.context().fetch<Client>(), std::vector{client});
}

TEST(Rollback, leavesWhatWasSavedAlone) {
    TestLibrary library;
    library.addClient("Acme");
    library.context().save();
    library.context().rollback();
    library.reopen();
    EXPECT_EQ(library.context().fetchCount<Client>(), 1U);
}

/// Two invoices of one number, which only SQLite notices.
class FailedSave : public testing::Test {
 protected:
    FailedSave() {
        client = library.addClient("Acme");
        library.addInvoice("1", client);
        library.context().save();
        client->name = "Globex";
        duplicate = library.addInvoice("1", client);
        project = library.addProject("Website", client);
    }

    TestLibrary library;
    Ref<Client> client;
    Ref<Project> project;
    Ref<Invoice> duplicate;
};

TEST_F(FailedSave, throwsAConstraintErrorAndKeepsTheChangesPending) {
    try {
        library.context().save();
        FAIL() << "the number is taken";
    } catch (const StoreError& error) {
        EXPECT_EQ(error.code(), StoreError::Code::constraint);
    }
    EXPECT_TRUE(library.context().hasChanges());
    EXPECT_EQ(client->name.get(), "Globex");
    EXPECT_EQ(client->projects(), std::vector{project});
}

TEST_F(FailedSave, writesNothing) {
    EXPECT_THROW(library.context().save(), StoreError);
    library.reopen();
    EXPECT_EQ(library.context().fetch<Client>().at(0)->name.get(), "Acme");
    EXPECT_EQ(library.context().fetchCount<Project>(), 0U);
}

TEST_F(FailedSave, isRetriedByTheNext) {
    EXPECT_THROW(library.context().save(), StoreError);
    duplicate->number = "2";
    library.context().save();
    EXPECT_FALSE(library.context().hasChanges());
    library.reopen();
    EXPECT_EQ(library.context().fetch<Client>().at(0)->name.get(), "Globex");
    EXPECT_EQ(library.context().fetchCount<Invoice>(), 2U);
    EXPECT_EQ(library.context().fetchCount<Project>(), 1U);
}

TEST_F(FailedSave, thatIsQuietKeepsTheChangesPending) {
    library.context().saveQuietly();
    EXPECT_TRUE(library.context().hasChanges());
}

TEST_F(FailedSave, thatRollsBackLeavesNoChange) {
    EXPECT_THROW(library.context().saveOrRollback(), StoreError);
    EXPECT_FALSE(library.context().hasChanges());
    EXPECT_EQ(client->name.get(), "Acme");
    EXPECT_EQ(duplicate->unitOfWork(), nullptr);
}

TEST(Save, writesRecordsInAnyOrderOfTheirCreation) {
    TestLibrary library;
    const auto entry = library.addEntry(nullptr, at("2026-03-01T09:00Z"), std::nullopt);
    const auto project = library.addProject("Website", nullptr);
    entry->project = project;
    project->client = library.addClient("Acme");
    library.context().save();
    library.reopen();
    EXPECT_EQ(library.context().fetch<TimeEntry>().at(0)->project->client->name.get(), "Acme");
}

TEST(Save, refusesARecordThatPointsOutsideTheLibraryUntilItIsInserted) {
    TestLibrary library;
    const auto stranger = std::make_shared<Client>("Acme");
    library.addProject("Website", stranger);
    EXPECT_THROW(library.context().save(), StoreError);
    library.context().insert(stranger);
    library.context().save();
    EXPECT_FALSE(library.context().hasChanges());
}

TEST(Save, keepsAnEntryThatLeftAProjectBeforeItsDeletion) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    const auto left = library.addProject("Website", client);
    const auto kept = library.addProject("App", client);
    const auto entry = library.addEntry(left, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
    library.context().save();
    entry->project = kept;
    library.context().deleteRecord(left);
    library.context().save();
    library.reopen();
    const auto read = library.context().fetch<TimeEntry>();
    ASSERT_EQ(read.size(), 1U);
    EXPECT_EQ(read.front()->project->name.get(), "App");
}

TEST(Save, letsTwoInvoicesSwapTheirNumbers) {
    TestLibrary library;
    const auto first = library.addInvoice("1", nullptr);
    const auto second = library.addInvoice("2", nullptr);
    library.context().save();
    first->number = "2";
    second->number = "1";
    library.context().save();
    library.reopen();
    EXPECT_EQ(library.context().record<Invoice>(first->id())->number.get(), "2");
    EXPECT_EQ(library.context().record<Invoice>(second->id())->number.get(), "1");
}

TEST(Save, letsAnInvoiceTakeTheNumberOfADeletedOrRenumberedOne) {
    TestLibrary library;
    const auto deleted = library.addInvoice("1", nullptr);
    const auto renumbered = library.addInvoice("2", nullptr);
    library.context().save();
    library.context().deleteRecord(deleted);
    renumbered->number = "1";
    library.addInvoice("2", nullptr);
    library.context().save();
    EXPECT_EQ(library.context().fetchCount<Invoice>(), 2U);
}

}  // namespace
}  // namespace elmworth
