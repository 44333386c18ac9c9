// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "rescue/Recovery.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "exchange/AutoBackup.h"
#include "exchange/BackupDecoder.h"
#include "rescue/LibraryCheck.h"
#include "support/DamagedPages.h"
#include "support/Instants.h"
#include "support/LibraryText.h"
#include "support/Rows.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

namespace fs = std::filesystem;
using test::at;
using test::DamagedPages;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// A library with two hours that are billed, one that is not, and a timer.
class RecoveredLibrary : public testing::Test {
 protected:
    RecoveredLibrary() {
        acme_->hourlyRateCents = 12000;
        for (const char* start : {"2026-03-02T09:00:00Z", "2026-03-02T11:00:00Z"}) {
            const auto billed =
                library_.addEntry(website_, at(start), at(start) + std::chrono::hours(1));
            billed->notes = std::string("Work of ") + start;
            billed->invoice = invoice_;
            billed->billedRateCents = 11000;
        }
        invoice_->issueDate = invoice_->dueDate = at("2026-03-05T00:00Z");
        invoice_->periodStart = at("2026-03-01T00:00Z");
        invoice_->periodEnd = at("2026-04-01T00:00Z");
        invoice_->taxRateBasisPoints = 825;
        invoice_->currencyCode = "USD";
        library_.addEntry(website_, at("2026-03-03T09:00Z"), at("2026-03-03T10:00Z"))->notes =
            "Landing page";
        library_.addEntry(website_, at("2026-03-31T11:00Z"), std::nullopt);
        library_.context().save();
    }

    void takeSnapshot(const char* when = "2026-03-31T11:30:00Z") {
        fs::create_directories(snapshots_);
        ASSERT_TRUE(AutoBackup::runIfDue(library_.context(), profile_, at(when), snapshots_));
    }
    /// The closed library for damage.
    DamagedPages pages() {
        library_.close();
        return DamagedPages(library_.file());
    }
    void damage(const std::string& table) {
        const auto damaged = pages();
        for (const auto page : damaged.of(table)) damaged.overwrite(page);
    }
    /// Recovers the closed library; the result passes the check, and the source stays as it is.
    RecoveryReport recover() {
        library_.close();
        const bool isThere = fs::exists(library_.file());
        const auto before = isThere ? readFile(library_.file()) : "";
        const auto names = library_.folder.names();
        auto report = recoverLibrary({library_.file(), snapshots_, profile_}, target(), now_);
        EXPECT_EQ(isThere ? readFile(library_.file()) : "", before);
        EXPECT_EQ(library_.folder.names().size(), names.size() + 1);
        for (const auto& finding : checkLibrary(sqlite::LibraryImage(report.library)).findings)
            ADD_FAILURE() << finding.line();
        EXPECT_EQ(decodeBackup(readFile(report.backup)).profile, profile_);
        return report;
    }
    [[nodiscard]] fs::path target() const { return library_.folder.path() / "recovered"; }

    /// What `read` says of the recovered library.
    template <class Read>
    auto recovered(const Read& read) {
        Library result({target() / "library.sqlite"}, library_.runLoop);
        return read(result.mainContext());
    }
    std::string recoveredText() {
        return recovered([](UnitOfWork& context) { return test::libraryText(context); });
    }
    /// Start, length in minutes, project, invoice and notes of each finished entry.
    std::vector<std::string> recoveredEntries() {
        return recovered([](UnitOfWork& context) {
            std::vector<std::string> lines;
            for (const auto& entry : context.fetch<TimeEntry>()) {
                if (entry->isRunning()) continue;
                lines.push_back(formatISO8601(entry->start) + ' ' +
                                std::to_string(static_cast<int>(entry->duration() / 60)) + ' ' +
                                entry->project->name.get() + ' ' +
                                (entry->invoice ? entry->invoice->number.get() : "unbilled") + ' ' +
                                entry->notes.get());
            }
            return lines;
        });
    }

    const Instant now_ = at("2026-03-31T12:00Z");
    BusinessProfile profile_{.name = "Jane Doe Design"};
    test::TestLibrary library_;
    const fs::path snapshots_ = library_.folder.path() / "Backups";
    Ref<Client> acme_ = library_.addClient("Acme");
    Ref<Client> globex_ = library_.addClient("Globex");
    Ref<Project> website_ = library_.addProject("Website", acme_);
    Ref<Project> shop_ = library_.addProject("Shop", globex_);
    Ref<Invoice> invoice_ = library_.addInvoice("INV-1", acme_);
};

constexpr const char* allEntries[] = {
    "2026-03-02T09:00:00Z 60 Website INV-1 Work of 2026-03-02T09:00:00Z",
    "2026-03-02T11:00:00Z 60 Website INV-1 Work of 2026-03-02T11:00:00Z",
    "2026-03-03T09:00:00Z 60 Website unbilled Landing page"};

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

TEST_F(RecoveredLibrary, hasRowsThatAPageNoLongerCounts) {
    takeSnapshot();
    const auto text = test::libraryText(library_.context());
    const auto damaged = pages();
    damaged.write((damaged.of("TimeEntry").front() - 1) * damaged.pageSize() + 4, "\x01");
    recover();
    EXPECT_EQ(recoveredText(), text);
}

TEST_F(RecoveredLibrary, hasTheNotesAndRatesOfLostRowsFromTheSnapshot) {
    takeSnapshot();
    const auto text = test::libraryText(library_.context());
    damage("TimeEntry");
    const auto report = recover();
    EXPECT_EQ(report.snapshot, at("2026-03-31T11:30:00Z"));
    EXPECT_THAT(recoveredEntries(), testing::UnorderedElementsAreArray(allEntries));
    EXPECT_EQ(recoveredText(), text);
}

TEST_F(RecoveredLibrary, hasLostProjectsFromTheSnapshotUnderTheirIdentities) {
    takeSnapshot();
    website_->name = "Web site";  // since then
    library_.context().save();
    damage("Project");
    const auto report = recover();
    EXPECT_EQ(report.counts[1].fromSnapshot, 2U);
    EXPECT_THAT(recoveredEntries(), testing::UnorderedElementsAreArray(allEntries));
    recovered([&](UnitOfWork& context) {
        EXPECT_EQ(context.record<Project>(website_->id())->client->name.get(), "Acme");
    });
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

TEST_F(RecoveredLibrary, hasLostClientsFromTheSnapshot) {
    takeSnapshot();
    damage("Client");
    const auto report = recover();
    EXPECT_EQ(report.counts[0].fromSnapshot, 2U);
    recovered([&](UnitOfWork& context) {
        EXPECT_EQ(context.record<Client>(acme_->id())->name.get(), "Acme");
        EXPECT_EQ(context.record<Client>(acme_->id())->hourlyRateCents.get(), 12000);
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
    EXPECT_THAT(recoveredEntries(), testing::UnorderedElementsAreArray(allEntries));
    EXPECT_THAT(report.remarks, Contains(HasSubstr("Invoice INV-1 could not be read")));
    recovered([&](UnitOfWork& context) {
        const auto invoice = context.record<Invoice>(invoice_->id());
        EXPECT_EQ(invoice->client->name.get(), "Acme");
        EXPECT_EQ(invoice->issueDate.get(), at("2026-03-05T00:00Z"));
        EXPECT_EQ(invoice->periodEnd.get(), at("2026-03-02T12:00Z"));
    });
}

TEST_F(RecoveredLibrary, hasALostInvoiceFromTheSnapshot) {
    takeSnapshot();
    const auto text = test::libraryText(library_.context());
    damage("Invoice");
    EXPECT_EQ(recover().counts[3], (RecoveredCounts{0, 0, 1, 0}));
    EXPECT_EQ(recoveredText(), text);
}

TEST_F(RecoveredLibrary, bringsBackNothingThatWasDeletedWhereAllPagesCanBeRead) {
    takeSnapshot();
    library_.context().deleteRecord(website_);
    library_.context().save();
    const auto text = test::libraryText(library_.context());
    recover();
    EXPECT_EQ(recoveredText(), text);
}

TEST_F(RecoveredLibrary, countsNoTimeTwiceThatWasCorrectedSinceTheSnapshot) {
    takeSnapshot();
    for (const auto& entry : library_.context().fetch<TimeEntry>())
        entry->start = entry->start.get() + std::chrono::minutes(10);
    website_->name = "Web site";
    acme_->name = "Acme Co";
    library_.context().save();
    damage("TimeEntryByEnd");
    const auto report = recover();
    EXPECT_EQ(recoveredEntries().size(), 3U);
    EXPECT_THAT(report.remarks,
                Contains("4 entries of the snapshot overlap time that the library has, and were "
                         "left out."));
    EXPECT_THAT(report.remarks,
                Contains("Project “Website” comes from the snapshot: look whether you "
                         "had renamed or deleted it since."));
}

TEST_F(RecoveredLibrary, hasWhatADamagedPageMayHaveHeldFromTheSnapshot) {
    takeSnapshot();
    const auto damaged = pages();
    for (std::size_t page = 2; page <= damaged.count(); ++page) damaged.overwrite(page);
    const auto report = recover();
    EXPECT_EQ(report.counts[2].fromSnapshot, 4U);
    EXPECT_THAT(recoveredEntries(), testing::IsSupersetOf(allEntries));
    EXPECT_THAT(report.remarks, Contains("Entry of 2026-03-03T09:00:00Z comes from the snapshot: "
                                         "look whether you had renamed or deleted it since."));
}

TEST_F(RecoveredLibrary, isTheSnapshotWhereThereIsNoLibrary) {
    takeSnapshot();
    library_.close();
    fs::remove(library_.file());
    const auto report = recover();
    EXPECT_EQ(report.counts[2].fromSnapshot, 4U);
    EXPECT_THAT(report.remarks, Contains(HasSubstr("No such file or directory")));
}

TEST_F(RecoveredLibrary, comesFromAnOlderSnapshotWhereTheNewestIsDamaged) {
    takeSnapshot("2026-03-29T11:00:00Z");
    std::ofstream(snapshots_ / "Elmworth-2026-03-31T11-30-00.json") << "{\"clients\": [";
    damage("Client");
    const auto report = recover();
    EXPECT_EQ(report.snapshot, at("2026-03-29T11:00:00Z"));
    EXPECT_THAT(report.remarks,
                Contains(HasSubstr("Elmworth-2026-03-31T11-30-00.json could not be used: ")));
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
