// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include "store/UnitOfWork.h"
#include "support/Instants.h"
#include "support/RawDatabase.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::RawDatabase;
using test::TestLibrary;

/// Acme with a project, a finished and a running entry, and one of another project; the finished
/// entry is billed by an invoice of nobody.
class DeleteRules : public testing::Test {
 protected:
    DeleteRules() {
        client = library.addClient("Acme");
        project = library.addProject("Website", client);
        other = library.addProject("App", client);
        finished = library.addEntry(project, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
        running = library.addEntry(project, at("2026-03-02T09:00Z"), std::nullopt);
        elsewhere = library.addEntry(other, at("2026-03-01T11:00Z"), at("2026-03-01T12:00Z"));
        invoice = library.addInvoice("1", nullptr);
        finished->invoice = invoice;
        finished->billedRateCents = 5000;
        library.context().save();
    }

    TestLibrary library;
    Ref<Client> client;
    Ref<Project> project, other;
    Ref<TimeEntry> finished, running, elsewhere;
    Ref<Invoice> invoice;
};

TEST_F(DeleteRules, aClientTakesItsProjectsAndTheirEntriesAlong) {
    library.context().deleteRecord(client);
    EXPECT_TRUE(client->isDeleted());
    EXPECT_TRUE(project->isDeleted());
    EXPECT_TRUE(other->isDeleted());
    EXPECT_TRUE(finished->isDeleted());
    EXPECT_TRUE(running->isDeleted());
    library.context().save();
    library.reopen();
    EXPECT_EQ(library.context().fetchCount<Client>(), 0U);
    EXPECT_EQ(library.context().fetchCount<Project>(), 0U);
    EXPECT_EQ(library.context().fetchCount<TimeEntry>(), 0U);
    EXPECT_EQ(library.context().fetchCount<Invoice>(), 1U);
}

TEST_F(DeleteRules, aProjectTakesItsEntriesAlongBilledOrNot) {
    library.context().deleteRecord(project);
    library.context().save();
    EXPECT_EQ(library.context().fetch<TimeEntry>(), std::vector{elsewhere});
    EXPECT_EQ(client->projects(), std::vector{other});
    EXPECT_TRUE(invoice->entries().empty());
}

TEST_F(DeleteRules, anInvoiceOnlySetsItsEntriesFree) {
    library.context().deleteRecord(invoice);
    EXPECT_FALSE(finished->invoice);
    EXPECT_FALSE(finished->isDeleted());
    library.context().save();
    library.reopen();
    const auto read = library.context().record<TimeEntry>(finished->id());
    ASSERT_TRUE(read);
    EXPECT_FALSE(read->invoice);
    EXPECT_EQ(read->billedRateCents.get(), 5000);
}

TEST_F(DeleteRules, anEntryLeavesItsProjectAndItsInvoice) {
    library.context().deleteRecord(finished);
    EXPECT_EQ(project->entries(), std::vector{running});
    EXPECT_TRUE(invoice->entries().empty());
    library.context().save();
    library.reopen();
    EXPECT_EQ(library.context().fetchCount<TimeEntry>(), 2U);
}

TEST_F(DeleteRules, aClientWithInvoicesIsRefusedAtTheSave) {
    invoice->client = client;
    library.context().save();
    library.context().deleteRecord(client);
    try {
        library.context().save();
        FAIL() << "the client has an invoice";
    } catch (const StoreError& error) {
        EXPECT_EQ(error.code(), StoreError::Code::deleteDenied);
    }
    library.context().rollback();
    library.reopen();
    EXPECT_EQ(library.context().fetchCount<Client>(), 1U);
    EXPECT_EQ(library.context().fetchCount<TimeEntry>(), 3U);
}

TEST_F(DeleteRules, anUnsavedInvoiceRefusesTheDeletionOfItsClientToo) {
    library.context().deleteRecord(client);
    library.addInvoice("2", client);
    EXPECT_THROW(library.context().save(), StoreError);
}

TEST_F(DeleteRules, aClientMayGoTogetherWithItsInvoices) {
    invoice->client = client;
    library.context().save();
    library.context().deleteRecord(invoice);
    library.context().deleteRecord(client);
    library.context().save();
    EXPECT_EQ(library.context().fetchCount<Invoice>(), 0U);
    EXPECT_EQ(library.context().fetchCount<Client>(), 0U);
}

TEST_F(DeleteRules, aClientMayGoOnceItsInvoiceBelongsToAnother) {
    invoice->client = client;
    library.context().save();
    invoice->client = library.addClient("Globex");
    library.context().deleteRecord(client);
    library.context().save();
    library.reopen();
    EXPECT_EQ(library.context().fetch<Client>().at(0)->name.get(), "Globex");
}

TEST_F(DeleteRules, reachRecordsThatAreNotSavedYet) {
    const auto added = library.addEntry(project, at("2026-03-03T09:00Z"), std::nullopt);
    elsewhere->project = project;
    library.context().deleteRecord(project);
    EXPECT_TRUE(added->isDeleted());
    EXPECT_EQ(added->unitOfWork(), nullptr);
    EXPECT_TRUE(elsewhere->isDeleted());
    library.context().save();
    EXPECT_EQ(library.context().fetchCount<TimeEntry>(), 0U);
}

TEST_F(DeleteRules, spareARecordThatMovedAwayBefore) {
    finished->project = other;
    library.context().deleteRecord(project);
    library.context().save();
    EXPECT_EQ(library.context().fetch<TimeEntry>(), (std::vector{finished, elsewhere}));
}

TEST_F(DeleteRules, deletingTwiceIsDeletingOnce) {
    library.context().deleteRecord(finished);
    library.context().deleteRecord(finished);
    library.context().save();
    library.context().deleteRecord(finished);
    library.context().save();
    EXPECT_EQ(library.context().fetchCount<TimeEntry>(), 2U);
}

TEST_F(DeleteRules, aReferenceKeptAfterDeletionSaysSo) {
    library.context().deleteRecord(finished);
    EXPECT_TRUE(finished->isDeleted());
    EXPECT_EQ(finished->unitOfWork(), &library.context());
    library.context().save();
    EXPECT_TRUE(finished->isDeleted());
    EXPECT_EQ(finished->unitOfWork(), nullptr);
    EXPECT_EQ(finished->start.get(), at("2026-03-01T09:00Z"));
    EXPECT_FALSE(library.context().record<TimeEntry>(finished->id()));
    finished->notes = "written to nothing";
    EXPECT_FALSE(library.context().hasChanges());
}

TEST_F(DeleteRules, derivedValuesOfADeletedEntryAskForNothingThatIsGone) {
    library.reopen();
    const auto entry = library.context().fetch<TimeEntry>().at(1);
    library.context().deleteRecord(library.context().fetch<Client>().at(0));
    library.context().save();
    EXPECT_EQ(entry->effectiveRateCents(), 0);
}

TEST_F(DeleteRules, aNewRecordThatIsDeletedAgainLeavesNoTrace) {
    const auto added = library.addClient("Globex");
    library.context().deleteRecord(added);
    EXPECT_TRUE(added->isDeleted());
    EXPECT_FALSE(library.context().hasChanges());
}

// --- the same promises, kept by SQLite for anybody who writes to the file ------------------------

class DeleteRulesInSQLite : public DeleteRules {
 protected:
    DeleteRulesInSQLite() {
        invoice->client = client;
        library.context().save();
        library.close();
        raw = std::make_unique<RawDatabase>(library.file());
        raw->run("PRAGMA foreign_keys = ON");
    }
    std::unique_ptr<RawDatabase> raw;
};

TEST_F(DeleteRulesInSQLite, aClientWithInvoicesStays) {
    EXPECT_EQ(raw->run("DELETE FROM Client"), SQLITE_CONSTRAINT);
    EXPECT_EQ(raw->rows("SELECT name FROM Client"), std::vector<std::string>{"Acme"});
}

TEST_F(DeleteRulesInSQLite, aClientTakesItsProjectsAndTheirEntriesAlong) {
    EXPECT_EQ(raw->run("UPDATE Invoice SET client = NULL; DELETE FROM Client"), SQLITE_OK);
    EXPECT_TRUE(raw->rows("SELECT 1 FROM Project").empty());
    EXPECT_TRUE(raw->rows("SELECT 1 FROM TimeEntry").empty());
}

TEST_F(DeleteRulesInSQLite, anInvoiceOnlySetsItsEntriesFree) {
    EXPECT_EQ(raw->run("DELETE FROM Invoice"), SQLITE_OK);
    EXPECT_EQ(raw->rows("SELECT count(*), count(invoice) FROM TimeEntry"),
              std::vector<std::string>{"3|0"});
}

struct Statement {
    const char* name;
    const char* sql;
};
class BrokenPromise : public DeleteRulesInSQLite, public testing::WithParamInterface<Statement> {};

TEST_P(BrokenPromise, isRefused) {
    EXPECT_EQ(raw->run(GetParam().sql), SQLITE_CONSTRAINT);
}

INSTANTIATE_TEST_SUITE_P(
    Library, BrokenPromise,
    testing::Values(Statement{"twoInvoicesOfOneNumber",
                              "CREATE TEMP TABLE twin AS SELECT * FROM Invoice;"
                              "UPDATE twin SET id = randomblob(16);"
                              "INSERT INTO Invoice SELECT * FROM twin"},
                    Statement{"aClientWithoutName", "UPDATE Client SET name = NULL"},
                    Statement{"anEntryWithoutStart", "UPDATE TimeEntry SET start = NULL"},
                    Statement{"aTextAsRate", "UPDATE Client SET hourlyRateCents = 'much'"},
                    Statement{"anIdentityOfTheWrongLength", "UPDATE Client SET id = x'00'"},
                    Statement{"anEntryOfAnUnknownProject",
                              "UPDATE TimeEntry SET project = zeroblob(16)"}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace elmworth
