// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "store/UnitOfWork.h"
#include "support/FaultyVfs.h"
#include "support/Instants.h"
#include "support/StoppingProgress.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::FaultyVfs;
using test::StoppingProgress;
using test::TestLibrary;

TEST(Spill, recordsAreThereBeforeTheSaveAndStayAfterIt) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    library.addProject("Website", client);
    library.context().flushInserts();
    EXPECT_EQ(library.context().fetchCount<Project>(), 1U);
    library.addProject("Shop", client);
    EXPECT_EQ(library.context().fetchCount<Project>(), 2U);
    library.context().save();
    library.reopen();
    EXPECT_EQ(library.context().fetchCount<Client>(), 1U);
    EXPECT_EQ(library.context().fetchCount<Project>(), 2U);
}

TEST(Spill, isNotDurableBeforeTheSave) {
    TestLibrary library;
    library.addClient("Acme");
    library.context().flushInserts();
    library.reopen();
    EXPECT_EQ(library.context().fetchCount<Client>(), 0U);
}

TEST(Spill, letsGoOfRecordsThatNobodyRefersTo) {
    TestLibrary library;
    const std::weak_ptr<Client> client = library.addClient("Acme");
    EXPECT_FALSE(client.expired());
    library.context().flushInserts();
    EXPECT_TRUE(client.expired());
}

TEST(Spill, aRollbackTakesSpilledRecordsOutOfTheContext) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    library.context().flushInserts();
    client->name = "Globex";
    const auto project = library.addProject("Website", client);
    library.context().rollback();
    EXPECT_EQ(client->unitOfWork(), nullptr);
    EXPECT_EQ(project->unitOfWork(), nullptr);
    EXPECT_EQ(library.context().fetchCount<Client>(), 0U);
    library.addClient("Initech");
    library.context().save();
    library.reopen();
    EXPECT_EQ(library.context().fetch<Client>().at(0)->name.get(), "Initech");
}

TEST(Spill, aFailedSaveAfterItRollsEverythingBack) {
    FaultyVfs disk;
    TestLibrary library;
    library.addClient("Acme");
    library.context().save();
    const auto flushed = library.addClient("Globex");
    library.context().flushInserts();
    library.addClient("Initech");
    disk.failAt(1, SQLITE_FULL, FaultyVfs::Duration::once);
    EXPECT_THROW(library.context().save(), StoreError);
    EXPECT_EQ(flushed->unitOfWork(), nullptr);
    EXPECT_FALSE(library.context().hasChanges());
    EXPECT_EQ(library.context().fetchCount<Client>(), 1U);
}

TEST(Spill, doesNothingWhileOtherChangesWait) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    library.context().save();
    client->name = "Globex";
    library.addClient("Initech");
    library.context().flushInserts();
    EXPECT_TRUE(library.context().hasChanges());
    library.context().rollback();
    EXPECT_EQ(client->name.get(), "Acme");
    EXPECT_EQ(library.context().fetchCount<Client>(), 1U);
}

TEST(StoppedSave, keepsTheChangesForTheNextOne) {
    TestLibrary library;
    for (int i = 0; i < 1000; ++i) library.addClient("Client " + std::to_string(i));
    StoppingProgress progress(1);
    EXPECT_THROW(library.context().save(progress), Cancelled);
    library.context().save();
    library.reopen();
    EXPECT_EQ(library.context().fetchCount<Client>(), 1000U);
}

TEST(StoppedSave, canBeRolledBack) {
    TestLibrary library;
    for (int i = 0; i < 1000; ++i) library.addClient("Client " + std::to_string(i));
    StoppingProgress progress(1);
    EXPECT_THROW(library.context().saveOrRollback(progress), Cancelled);
    EXPECT_FALSE(library.context().hasChanges());
    EXPECT_EQ(library.context().fetchCount<Client>(), 0U);
}

}  // namespace
}  // namespace elmworth
