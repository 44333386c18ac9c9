// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "rescue/Recovery.h"

#include <fstream>

#include "rescue/RecoveredLibrary.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

namespace fs = std::filesystem;
using test::allEntries;
using test::at;
using test::RecoveredLibrary;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using testing::UnorderedElementsAreArray;

TEST_F(RecoveredLibrary, isTheSameWhereNothingIsDamaged) {
    takeSnapshot();
    const auto text = test::libraryText(library_.context());
    const auto report = recover();
    EXPECT_EQ(recoveredText(), text);
    EXPECT_FALSE(report.snapshot);
    EXPECT_EQ(report.damagedPages, 0U);
    EXPECT_THAT(report.remarks, IsEmpty());
    EXPECT_EQ(report.counts[2].fromLibrary, 4U);
}

TEST_F(RecoveredLibrary, hasWhatOnlyTheLogHolds) {
    library_.addClient("Initech");
    library_.context().save();
    const auto text = test::libraryText(library_.context());
    recover();
    EXPECT_EQ(recoveredText(), text);
}

class DamagedIndex : public RecoveredLibrary, public testing::WithParamInterface<const char*> {};

TEST_P(DamagedIndex, losesNothing) {
    const auto text = test::libraryText(library_.context());
    damage(GetParam());
    EXPECT_EQ(recover().damagedPages, 1U);
    EXPECT_EQ(recoveredText(), text);
}

INSTANTIATE_TEST_SUITE_P(, DamagedIndex,
                         testing::Values("ProjectByClient", "TimeEntryByStart", "TimeEntryByEnd",
                                         "TimeEntryRunning", "TimeEntryUnbilled",
                                         "TimeEntryUnbilledByProject", "TimeEntryByProject",
                                         "TimeEntryByInvoice", "InvoiceByClient",
                                         "InvoiceByIssueDate", "sqlite_autoindex_Invoice_2"),
                         test::textName);

TEST_F(RecoveredLibrary, losesNothingButWhatSQLiteKnowsAboutItWithItsFirstPage) {
    const auto text = test::libraryText(library_.context());
    pages().overwrite(1);
    recover();
    EXPECT_EQ(recoveredText(), text);
}

TEST_F(RecoveredLibrary, keepsAllTimeWhoseRowsAreLostByTheIndexes) {
    damage("TimeEntry");
    const auto report = recover();
    EXPECT_THAT(recoveredEntries(),
                UnorderedElementsAre("2026-03-02T09:00:00Z 60 Website INV-1 ",
                                     "2026-03-02T11:00:00Z 60 Website INV-1 ",
                                     "2026-03-03T09:00:00Z 60 Website unbilled "));
    EXPECT_EQ(report.counts[2], (RecoveredCounts{0, 4, 0, 0}));
    EXPECT_THAT(report.remarks, Contains(HasSubstr("the frozen rate could not be read")));
}

TEST_F(RecoveredLibrary, hasTheTimesOnWhichTheIndexesAgreeWhereARowHasOthers) {
    const auto text = test::libraryText(library_.context());
    const auto damaged = pages();
    const auto start = at("2026-03-03T09:00Z").time_since_epoch().count();
    const auto place = (damaged.of("TimeEntry").front() - 1) * damaged.pageSize();
    const auto bytes = readFile(library_.file()).substr(place, damaged.pageSize());
    std::string stored;  // an integer of eight bytes
    for (int shift = 56; shift >= 0; shift -= 8) stored += static_cast<char>(start >> shift);
    ASSERT_NE(bytes.find(stored), std::string::npos);
    damaged.write(place + bytes.find(stored) + 4, "!");
    EXPECT_THAT(recover().remarks,
                ElementsAre("Entry of 2026-03-03T09:00:00Z until 2026-03-03T10:00:00Z was stored "
                            "with other times, which its indexes belie."));
    EXPECT_EQ(recoveredText(), text);
}

TEST_F(RecoveredLibrary, keepsTheTimeOfLostProjectsApart) {
    library_.addEntry(shop_, at("2026-03-04T09:00Z"), at("2026-03-04T10:00Z"));
    library_.context().save();
    damage("Project");
    const auto report = recover();
    EXPECT_EQ(report.counts[1].unknown, 2U);
    recovered([&](UnitOfWork& context) {
        const auto entries = context.fetch<TimeEntry>();
        ASSERT_EQ(entries.size(), 5U);
        for (const auto& entry : entries)
            EXPECT_THAT(entry->project->name.get(), HasSubstr("Recovered project "));
        // An index still tells whose they are.
        EXPECT_EQ(context.record<Project>(website_->id())->client->name.get(), "Acme");
        EXPECT_EQ(context.record<Project>(shop_->id())->client->name.get(), "Globex");
    });
}

TEST_F(RecoveredLibrary, billsNothingAtARateThatNobodyKnows) {
    damage("Client");
    EXPECT_EQ(recover().counts[0].unknown, 2U);
    recovered([&](UnitOfWork& context) {
        EXPECT_EQ(context.record<Project>(website_->id())->effectiveRateCents(), 0);
    });
}

TEST_F(RecoveredLibrary, keepsBilledTimeBilledWhereTheInvoiceIsLost) {
    damage("Invoice");
    const auto report = recover();
    EXPECT_THAT(recoveredEntries(), UnorderedElementsAreArray(allEntries));
    EXPECT_THAT(report.remarks, Contains(HasSubstr("Invoice INV-1 could not be read")));
    recovered([&](UnitOfWork& context) {
        const auto invoice = context.record<Invoice>(invoice_->id());
        EXPECT_EQ(invoice->client->name.get(), "Acme");
        EXPECT_EQ(invoice->issueDate.get(), at("2026-03-05T00:00Z"));
        EXPECT_EQ(invoice->periodEnd.get(), at("2026-03-02T12:00Z"));
    });
}

TEST_F(RecoveredLibrary, holdsNoDeletedRecordsThatFreePagesStillShow) {
    for (int i = 0; i < 400; ++i) {
        library_.addEntry(shop_, at("2026-01-01T00:00Z") + std::chrono::hours(i),
                          at("2026-01-01T00:30Z") + std::chrono::hours(i));
    }
    library_.context().save();
    for (const auto& entry : shop_->entries()) library_.context().deleteRecord(entry);
    library_.context().save();
    const auto text = test::libraryText(library_.context());
    auto damaged = pages();
    recover();
    EXPECT_EQ(recoveredText(), text);
    // The list of the free pages: the trees tell which rows are left.
    damaged.write(32, std::string(4, '\xFF'));
    fs::remove_all(target());
    recover();
    EXPECT_EQ(recoveredText(), text);
}

TEST_F(RecoveredLibrary, keepsTheTimerThatBeganLast) {
    library_.addEntry(shop_, at("2026-03-30T09:00Z"), std::nullopt);
    library_.context().save();
    EXPECT_THAT(recover().remarks,
                ElementsAre("Entry of 2026-03-30T09:00:00Z ran beside another timer, and lasts a "
                            "second now."));
}

TEST_F(RecoveredLibrary, tellsWhatItSetRight) {
    acme_->hourlyRateCents = -5;
    library_.context().save();
    EXPECT_THAT(recover().remarks, ElementsAre("Client “Acme”: rate is -5, below 0; it is 0 now."));
    EXPECT_EQ(readFile(target() / "remarks.txt"),
              "Client “Acme”: rate is -5, below 0; it is 0 now.\n");
}

TEST_F(RecoveredLibrary, needsAFolderInWhichNothingIsOverwritten) {
    fs::create_directory(target());
    std::ofstream(target() / "notes") << "mine";
    EXPECT_THROW(recover(), RecoveryError);
    EXPECT_EQ(std::distance(fs::directory_iterator(target()), fs::directory_iterator()), 1);
}

TEST(Recovery, writesNothingWhereThereIsNothing) {
    const test::TemporaryFolder folder;
    std::ofstream(folder.path() / "library.sqlite") << "Some notes.";
    try {
        static_cast<void>(recoverLibrary({folder.path() / "library.sqlite", folder.path(), {}},
                                         folder.path() / "new", at("2026-03-31T12:00Z")));
        FAIL();
    } catch (const RecoveryError& error) {
        EXPECT_THAT(error.what(), HasSubstr(" can be read, and there is no snapshot."));
    }
    EXPECT_FALSE(fs::exists(folder.path() / "new"));
}

TEST(Recovery, readsALibraryOfAnOlderVersion) {
    const test::TemporaryFolder folder;
    const auto file = fs::path(ELMWORTH_TEST_DATA) / "library" / "library-1.0.0.sqlite";
    const auto report =
        recoverLibrary({file, folder.path(), {}}, folder.path() / "new", at("2026-03-31T12:00Z"));
    EXPECT_EQ(report.damagedPages, 0U);
    EXPECT_EQ(report.counts[2].fromLibrary, 2U);
}

}  // namespace
}  // namespace elmworth
