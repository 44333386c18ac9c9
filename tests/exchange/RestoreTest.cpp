// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/Restore.h"

#include <gtest/gtest.h>

#include "exchange/BackupDecoder.h"
#include "exchange/BackupDocuments.h"
#include "support/BackupObjects.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::TestLibrary;

BackupObject entry(const char* start, std::optional<Instant> end) {
    return test::entryObject(at(start), end);
}

BackupObject invoice(const std::string& number, const std::string& client) {
    return test::object(
        backupShapes().invoice,
        {{"number", number}, {"client", client}, {"status", "sent"}, {"currencyCode", "EUR"}});
}

/// A document with one client of one project that holds `entries`.
Backup document(std::vector<BackupObject> entries) {
    Backup backup;
    backup.exportedAt = at("2026-03-10T12:00Z");
    auto project = test::projectObject("Web", std::move(entries));
    project["colorHex"] = "#FFB400";
    project["budgetHours"] = 40;
    backup.clients.push_back(test::clientObject("Acme", {std::move(project)}));
    backup.clients.back()["currencyCode"] = "EUR";
    return backup;
}

Ref<TimeEntry> onlyEntry(TestLibrary& library) {
    const auto entries = library.context().fetch<TimeEntry>();
    EXPECT_EQ(entries.size(), 1U);
    return entries.at(0);
}

TEST(Restore, backupRestoreBackupGivesTheSameDocument) {
    TestLibrary first;
    const auto project = first.addProject("Web", first.addClient("Acme"));
    const auto bill = first.addInvoice("INV-2026-001", project->client);
    const auto billed = first.addEntry(project, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
    billed->invoice = bill;
    billed->billedRateCents = 9000;
    first.addEntry(project, at("2026-03-02T09:00Z"), at("2026-03-02T10:00Z"))->notes = "é 😀";
    first.context().save();
    const auto backup = test::makeBackup(first.context(), {}, at("2026-03-10T12:00Z"));

    TestLibrary second;
    restore(backup, second.context());
    second.reopen();
    EXPECT_EQ(test::makeBackup(second.context(), {}, at("2026-03-10T12:00Z")), backup);
}

TEST(Restore, aLibraryWithAClientIsRefusedAndStaysAsItWas) {
    TestLibrary library;
    const auto client = library.addClient("Globex");
    library.context().save();
    EXPECT_THROW(restore(document({}), library.context()), RestoreError);
    EXPECT_EQ(library.context().fetch<Client>(), std::vector{client});
}

TEST(Restore, aLibraryWithTimeAloneIsRefused) {
    TestLibrary library;
    library.addEntry(nullptr, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
    try {
        restore(document({}), library.context());
        FAIL() << "was restored";
    } catch (const RestoreError& error) {
        EXPECT_EQ(error.code(), RestoreError::Code::notEmpty);
        EXPECT_STREQ(error.what(),
                     "Restoring needs an empty library. Delete your clients first, or restore on a "
                     "fresh install.");
    }
}

TEST(Restore, leftOverProjectsAndInvoicesAreNotInTheWay) {
    TestLibrary library;
    library.addProject("Old", nullptr);
    library.addInvoice("OLD-1", nullptr);
    library.context().save();
    restore(document({}), library.context());
    EXPECT_EQ(library.context().fetchCount<Client>(), 1U);
    EXPECT_EQ(library.context().fetchCount<Project>(), 2U);
}

TEST(Restore, anEntryThatRanHasAnEndHoweverNearItsStart) {
    TestLibrary library;
    restore(document({entry("2026-03-10T12:00Z", std::nullopt)}), library.context());
    EXPECT_EQ(onlyEntry(library)->end.get(), at("2026-03-10T12:00:01Z"));
}

TEST(Restore, aRunningEntryThatBeganAfterTheExportEndsOneSecondAfterItsStart) {
    TestLibrary library;
    restore(document({entry("2026-03-10T12:30Z", std::nullopt)}), library.context());
    EXPECT_EQ(onlyEntry(library)->end.get(), at("2026-03-10T12:30:01Z"));
}

TEST(Restore, aRunningEntryEndsAtTheExport) {
    TestLibrary library;
    restore(document({entry("2026-03-10T11:00Z", std::nullopt)}), library.context());
    EXPECT_EQ(onlyEntry(library)->end.get(), at("2026-03-10T12:00Z"));
}

TEST(Restore, anEntryThatRanInTheLastSecondOfAllEndsInIt) {
    TestLibrary library;
    auto backup = document({entry("9999-12-31T23:59:59Z", std::nullopt)});
    restore(backup, library.context());
    EXPECT_GT(onlyEntry(library)->end.get(), onlyEntry(library)->start.get());
    backup.clients.at(0).items.at(0).items.at(0)["end"] = test::valueOf(at("9999-12-31T23:59:59Z"));
    EXPECT_EQ(
        test::decode(test::encode(test::makeBackup(library.context(), {}, backup.exportedAt))),
        backup);
}

TEST(Restore, anInvoiceWithoutAPositionGoesToTheFirstClientOfItsName) {
    TestLibrary library;
    auto backup = document({});
    backup.clients.push_back(backup.clients.at(0));
    backup.invoices.push_back(invoice("1", "Acme"));
    restore(backup, library.context());
    EXPECT_EQ(library.context().fetch<Invoice>().at(0)->client.get(),
              library.context().fetch<Client>().at(0));
}

TEST(Restore, aPositionChoosesAmongNamesakes) {
    TestLibrary library;
    auto backup = document({});
    backup.clients.push_back(backup.clients.at(0));
    backup.clients.at(1)["email"] = "second@acme.example";
    backup.invoices.push_back(invoice("1", "Acme"));
    backup.invoices.at(0)["clientIndex"] = 1;
    restore(backup, library.context());
    EXPECT_EQ(library.context().fetch<Invoice>().at(0)->client->email.get(), "second@acme.example");
}

TEST(Restore, theInvoiceOfAnEntryIsFoundByNumberAloneWhoeverItsClientIs) {
    TestLibrary library;
    auto backup = document({entry("2026-03-01T09:00Z", at("2026-03-01T10:00Z"))});
    backup.clients.push_back(test::clientObject("Globex"));
    backup.clients.at(0).items.at(0).items.at(0)["invoiceNumber"] = "1";
    backup.invoices.push_back(invoice("1", "Globex"));
    EXPECT_EQ(restore(backup, library.context()).unlinkedEntries, 0);
    EXPECT_EQ(onlyEntry(library)->invoice->client->name.get(), "Globex");
}

TEST(Restore, theProfilesOfTheDocumentAndOfItsInvoicesComeBack) {
    TestLibrary library;
    auto backup = document({});
    backup.profile.name = "Jane";
    backup.invoices.push_back(invoice("1", "Acme"));
    backup.invoices.at(0)["business"] = test::valueOf({.name = "Jane, then"});
    EXPECT_EQ(restore(backup, library.context()).profile.name, "Jane");
    EXPECT_EQ(library.context().fetch<Invoice>().at(0)->resolvedBusiness({}).name, "Jane, then");
}

TEST(Restore, anUnknownStatusComesBackAsItStands) {
    TestLibrary library;
    auto backup = document({});
    backup.invoices.push_back(invoice("1", "Acme"));
    backup.invoices.at(0)["status"] = "void";
    restore(backup, library.context());
    EXPECT_EQ(library.context().fetch<Invoice>().at(0)->statusRaw.get(), "void");
}

TEST(Restore, withoutLostInvoicesTheMessageIsTheTwoCounts) {
    EXPECT_EQ(restoreMessage(document({}), {}), "Restored 1 clients and 0 invoices.");
}

TEST(Restore, aPositionBeyondTheListFallsBackToTheName) {
    TestLibrary library;
    auto backup = document({});
    backup.invoices.push_back(invoice("1", "Acme"));
    backup.invoices.at(0)["clientIndex"] = 1;
    restore(backup, library.context());
    EXPECT_EQ(library.context().fetchCount<Invoice>(), 1U);
}

TEST(Restore, aNegativePositionEndsWithAnErrorAndNothingChanged) {
    TestLibrary library;
    auto backup = document({});
    backup.invoices.push_back(invoice("1", "Acme"));
    backup.invoices.at(0)["clientIndex"] = -1;
    try {
        restore(backup, library.context());
        FAIL() << "was restored";
    } catch (const RestoreError& error) {
        EXPECT_EQ(error.code(), RestoreError::Code::negativeClientIndex);
    }
    EXPECT_EQ(library.context().fetchCount<Client>(), 0U);
    EXPECT_FALSE(library.context().hasChanges());
}

TEST(Restore, ofTwoInvoicesWithOneNumberTheLaterStays) {
    TestLibrary library;
    auto backup = document({entry("2026-03-01T09:00Z", at("2026-03-01T10:00Z"))});
    backup.clients.at(0).items.at(0).items.at(0)["invoiceNumber"] = "1";
    backup.invoices.push_back(invoice("1", "Acme"));
    backup.invoices.push_back(invoice("1", "Acme"));
    backup.invoices.at(1)["notes"] = "the later";
    EXPECT_EQ(restore(backup, library.context()).unlinkedEntries, 0);
    EXPECT_EQ(onlyEntry(library)->invoice->notes.get(), "the later");
}

TEST(Restore, namesAndNumbersAreFoundHoweverTheirCharactersAreComposed) {
    TestLibrary library;
    auto backup = document({entry("2026-03-01T09:00Z", at("2026-03-01T10:00Z"))});
    backup.clients.at(0)["name"] = "Caf\u00e9";
    backup.clients.at(0).items.at(0).items.at(0)["invoiceNumber"] = "N\u00ba\u00c51";
    backup.invoices.push_back(invoice("N\u00baA\u030a1", "Cafe\u0301"));
    backup.invoices.push_back(invoice("N\u00ba\u212b1", "Cafe\u0301"));
    backup.invoices.at(1)["notes"] = "the later";
    EXPECT_EQ(restore(backup, library.context()).unlinkedEntries, 0);
    EXPECT_EQ(library.context().fetchCount<Invoice>(), 1U);
    EXPECT_EQ(onlyEntry(library)->invoice->notes.get(), "the later");
}

TEST(Restore, anEntryOfAnInvoiceThatWasDroppedComesBackUnbilled) {
    TestLibrary library;
    auto backup = document({entry("2026-03-01T09:00Z", at("2026-03-01T10:00Z"))});
    auto& billed = backup.clients.at(0).items.at(0).items.at(0);
    billed["invoiceNumber"] = "1";
    billed["billedRateCents"] = 9000;
    backup.invoices.push_back(invoice("1", "Nobody"));
    const auto result = restore(backup, library.context());
    EXPECT_EQ(result.unlinkedEntries, 1);
    EXPECT_FALSE(onlyEntry(library)->invoice);
    EXPECT_FALSE(onlyEntry(library)->billedRateCents.get().has_value());
    EXPECT_EQ(restoreMessage(backup, result),
              "Restored 1 clients and 1 invoices. 1 billed entries couldn't be matched to an "
              "invoice and are now unbilled — check them before invoicing.");
}

TEST(Restore, theVersionIsNotLookedAt) {
    TestLibrary library;
    auto backup = document({});
    backup.version = 7;
    restore(backup, library.context());
    EXPECT_EQ(library.context().fetchCount<Client>(), 1U);
}

TEST(Restore, aMissingSwitchForDetailLinesCountsAsOn) {
    TestLibrary library;
    auto backup = document({});
    backup.invoices.push_back(invoice("1", "Acme"));
    restore(backup, library.context());
    EXPECT_TRUE(library.context().fetch<Invoice>().at(0)->showsEntryDetails.get());
}

}  // namespace
}  // namespace elmworth
