// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a recovered library has from the newest snapshot, and what not.

#include <fstream>

#include "rescue/RecoveredLibrary.h"

namespace elmworth {
namespace {

namespace fs = std::filesystem;
using test::allEntries;
using test::at;
using test::RecoveredLibrary;
using testing::Contains;
using testing::HasSubstr;
using testing::IsSupersetOf;
using testing::UnorderedElementsAreArray;

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
    EXPECT_THAT(recoveredEntries(), UnorderedElementsAreArray(allEntries));
    EXPECT_EQ(recoveredText(), text);
}

TEST_F(RecoveredLibrary, hasLostProjectsFromTheSnapshotUnderTheirIdentities) {
    takeSnapshot();
    website_->name = "Web site";  // since then
    library_.context().save();
    damage("Project");
    const auto report = recover();
    EXPECT_EQ(report.counts[1].fromSnapshot, 2U);
    EXPECT_THAT(recoveredEntries(), UnorderedElementsAreArray(allEntries));
    recovered([&](UnitOfWork& context) {
        EXPECT_EQ(context.record<Project>(website_->id())->client->name.get(), "Acme");
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

/// A library from which an entry was deleted after its snapshot, and whose damaged index may have
/// held more.
class RecoveredFromSnapshot : public RecoveredLibrary {
 protected:
    RecoveredFromSnapshot() {
        for (const auto& entry : library_.context().fetch<TimeEntry>())
            if (entry->notes.get() == "Landing page") landing_ = entry;
        globex_->name = "Cafe\u0301";
        takeSnapshot();
    }
    [[nodiscard]] RecoveryReport recoverWithoutIndex() {
        library_.context().save();
        damage("TimeEntryByEnd");
        return recover();
    }

    Ref<TimeEntry> landing_;
};

TEST_F(RecoveredFromSnapshot, hasTimeThatOnlyTouchesOtherTime) {
    landing_->start = at("2026-03-03T08:00Z");
    landing_->end = at("2026-03-03T09:00Z");
    library_.addEntry(website_, at("2026-03-03T10:00Z"), at("2026-03-03T11:00Z"));
    EXPECT_EQ(recoverWithoutIndex().counts[2].fromSnapshot, 1U);
    EXPECT_THAT(recoveredEntries(), IsSupersetOf(allEntries));
}

TEST_F(RecoveredFromSnapshot, tellsAProjectByItsTimeBeforeItsName) {
    library_.context().deleteRecord(landing_);
    website_->name = "Old site";
    library_.addProject("Website", acme_);
    EXPECT_EQ(recoverWithoutIndex().counts[2].fromSnapshot, 1U);
    EXPECT_THAT(recoveredEntries(),
                Contains("2026-03-03T09:00:00Z 60 Old site unbilled Landing page"));
}

TEST_F(RecoveredFromSnapshot, tellsAProjectByMostOfItsTime) {
    library_.context().deleteRecord(landing_);
    for (const auto& entry : library_.context().fetch<TimeEntry>())
        if (entry->isRunning()) entry->project = shop_;
    EXPECT_EQ(recoverWithoutIndex().counts[2].fromSnapshot, 1U);
    EXPECT_THAT(recoveredEntries(), IsSupersetOf(allEntries));
}

TEST_F(RecoveredFromSnapshot, keepsTheNotesThatWereDeletedSince) {
    landing_->notes = "";
    (void)recoverWithoutIndex();
    EXPECT_THAT(recoveredEntries(), Contains("2026-03-03T09:00:00Z 60 Website unbilled "));
}

TEST_F(RecoveredFromSnapshot, tellsAClientByItsNameHoweverThatIsWritten) {
    globex_->name = "Caf\u00e9";
    EXPECT_EQ(recoverWithoutIndex().counts[0].fromSnapshot, 0U);
}

TEST_F(RecoveredLibrary, hasWhatADamagedPageMayHaveHeldFromTheSnapshot) {
    takeSnapshot();
    const auto damaged = pages();
    for (std::size_t page = 2; page <= damaged.count(); ++page) damaged.overwrite(page);
    const auto report = recover();
    EXPECT_EQ(report.counts[2].fromSnapshot, 4U);
    EXPECT_THAT(recoveredEntries(), IsSupersetOf(allEntries));
    EXPECT_THAT(report.remarks, Contains("Entry of 2026-03-03T09:00:00Z comes from the snapshot: "
                                         "look whether you had renamed or deleted it since."));
}

TEST_F(RecoveredLibrary, setsRightWhatTheSnapshotHasWrong) {
    acme_->hourlyRateCents = -5;
    library_.context().save();
    takeSnapshot();
    damage("Client");
    EXPECT_THAT(recover().remarks,
                Contains("Client “Acme”: rate is -5, below 0; this was set right."));
    recovered([&](UnitOfWork& context) {
        EXPECT_EQ(context.record<Client>(acme_->id())->hourlyRateCents.get(), 0);
    });
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

}  // namespace
}  // namespace elmworth
