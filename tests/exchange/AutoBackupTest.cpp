// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/AutoBackup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "exchange/BackupDecoder.h"
#include "exchange/BackupDocuments.h"
#include "exchange/BackupExporter.h"
#include "exchange/BackupWalk.h"
#include "platform/AtomicFile.h"
#include "records/ProfileStore.h"
#include "support/Instants.h"
#include "support/ScopedEnvironment.h"
#include "support/Snapshots.h"
#include "support/SystemLogCapture.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;
using test::TemporaryFolder;
using test::TestLibrary;

const Instant now = at("2026-03-10T12:00Z");

/// A check that no snapshot passes.
void refuse(const std::filesystem::path& /*file*/, const BackupExporter::Counts& /*written*/) {
    throw BackupDecodeError("clients[0]: not an object (line 3).");
}

class AutoBackupTest : public testing::Test {
 protected:
    AutoBackupTest() {
        const auto project = library_.addProject("Web", library_.addClient("Acme"));
        library_.addEntry(project, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
        library_.context().save();
    }
    auto run(Instant instant) { return test::takeSnapshot(library_.context(), defaults_, instant); }
    [[nodiscard]] static std::filesystem::path file(const std::string& name) {
        return AutoBackup::folder() / name;
    }
    static void put(const std::string& name) { writeAtomically(file(name), "{}"); }
    [[nodiscard]] static std::size_t count() {
        return AutoBackup::snapshots(AutoBackup::folder()).size();
    }

    TestLibrary library_;
    TemporaryFolder folder_;
    test::ScopedEnvironment data_{"XDG_DATA_HOME", folder_.path().string()};
    Settings defaults_{folder_.path() / "Elmworth.ini"};
};

TEST_F(AutoBackupTest, aSnapshotIsNamedByItsInstantInUTC) {
    const auto taken = run(now);
    ASSERT_TRUE(taken);
    EXPECT_EQ(taken->filename(), "Elmworth-2026-03-10T12-00-00.json");
    EXPECT_EQ(test::readBackup(*taken).clients.size(), 1U);
}

TEST_F(AutoBackupTest, onlyTheUserCanReadASnapshot) {
    EXPECT_EQ(std::filesystem::status(*run(now)).permissions(), std::filesystem::perms{0600});
}

TEST_F(AutoBackupTest, tenHoursAfterTheLastNothingIsWritten) {
    run(now);
    EXPECT_FALSE(run(now + 10h));
}

TEST_F(AutoBackupTest, twentyOneHoursAfterTheLastOneIsWritten) {
    run(now);
    EXPECT_TRUE(run(now + 21h));
    EXPECT_EQ(count(), 2U);
}

TEST_F(AutoBackupTest, afterTwentyHoursToTheSecondOneIsWritten) {
    run(now);
    EXPECT_FALSE(run(now + 20h - 1s));
    EXPECT_TRUE(run(now + 20h));
}

TEST_F(AutoBackupTest, theNameIsInUTCWhateverTheTimeZone) {
    const test::ScopedEnvironment tokyo("TZ", "Asia/Tokyo");
    EXPECT_EQ(run(now)->filename(), "Elmworth-2026-03-10T12-00-00.json");
    EXPECT_EQ(AutoBackup::snapshots(AutoBackup::folder()).at(0).date, now);
}

TEST_F(AutoBackupTest, aSnapshotThatCannotBeReadBackIsRemovedAndPrunesNothing) {
    for (int day = 10; day <= 27; ++day) {
        put("Elmworth-2026-02-" + std::to_string(day) + "T00-00-00.json");
    }
    const test::SystemLogCapture log;
    EXPECT_FALSE(test::takeSnapshot(library_.context(), defaults_, now, &refuse));
    EXPECT_EQ(count(), 18U);
}

TEST_F(AutoBackupTest, aSnapshotOfADamagedTextCanBeReadAndIsToldOf) {
    library_.context().fetch<TimeEntry>().at(0)->notes = "no UTF-8: \xFF";
    const test::SystemLogCapture log;
    const auto taken = run(now);
    ASSERT_TRUE(taken);
    EXPECT_EQ(test::readBackup(*taken).clients.at(0).items.at(0).items.at(0)["notes"],
              Value("no UTF-8: �"));
    EXPECT_EQ(log.take(), "Elmworth: " + taken->string() +
                              ": 1 text of the library held damaged bytes, which stand as � in "
                              "the document.\n");
}

TEST_F(AutoBackupTest, aSnapshotOfASoundLibraryIsNotToldOf) {
    const test::SystemLogCapture log;
    run(now);
    EXPECT_EQ(log.take(), "");
}

TEST_F(AutoBackupTest, aSnapshotOfAnyExtensionIsPruned) {
    put("Elmworth-2026-01-01T00-00-00.txt");
    for (int day = 10; day <= 23; ++day) {
        put("Elmworth-2026-02-" + std::to_string(day) + "T00-00-00.json");
    }
    run(now);
    EXPECT_EQ(count(), AutoBackup::snapshotsKept);
    EXPECT_FALSE(std::filesystem::exists(file("Elmworth-2026-01-01T00-00-00.txt")));
}

TEST_F(AutoBackupTest, aSnapshotFromTheFutureCountsAsRecent) {
    put("Elmworth-2027-01-01T00-00-00.json");
    EXPECT_FALSE(run(now));
}

TEST_F(AutoBackupTest, theFifteenthPushesTheOldestOut) {
    for (int day = 1; day <= 14; ++day) {
        put("Elmworth-2026-02-" + std::string(day < 10 ? "0" : "") + std::to_string(day) +
            "T00-00-00.json");
    }
    EXPECT_TRUE(run(now));
    EXPECT_EQ(count(), AutoBackup::snapshotsKept);
    EXPECT_FALSE(std::filesystem::exists(file("Elmworth-2026-02-01T00-00-00.json")));
}

TEST_F(AutoBackupTest, whatAKilledProcessBeganToWriteGoesAfterADay) {
    const auto putWritten = [&](const std::string& name, Instant written) {
        put(name);
        std::filesystem::last_write_time(file(name), std::chrono::file_clock::from_sys(written));
    };
    putWritten(".elmworth-a1b2c3", now - 24h - 1s);
    putWritten(".elmworth-d4e5f6", now - 24h);
    putWritten(".elmworth-notes.txt", now - 48h);
    putWritten("notes.txt", now - 48h);
    EXPECT_TRUE(run(now));
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(AutoBackup::folder()))
        names.push_back(entry.path().filename());
    EXPECT_THAT(names,
                testing::UnorderedElementsAre(".elmworth-d4e5f6", ".elmworth-notes.txt",
                                              "Elmworth-2026-03-10T12-00-00.json", "notes.txt"));
}

TEST_F(AutoBackupTest, anEmptyLibraryWritesAndPrunesNothing) {
    TestLibrary empty;
    for (int day = 10; day <= 25; ++day) {
        put("Elmworth-2026-02-" + std::to_string(day) + "T00-00-00.json");
    }
    EXPECT_FALSE(test::takeSnapshot(empty.context(), defaults_, now));
    EXPECT_EQ(count(), 16U);
}

TEST_F(AutoBackupTest, filesOfOtherNamesAreNoSnapshots) {
    put("Elmworth-notes.json");
    put("2026-01-01T00-00-00.json");
    EXPECT_EQ(count(), 0U);
}

TEST_F(AutoBackupTest, theExtensionIsNotLookedAt) {
    put("Elmworth-2026-01-01T00-00-00.txt");
    EXPECT_EQ(count(), 1U);
}

TEST_F(AutoBackupTest, snapshotsComeNewestFirst) {
    put("Elmworth-2026-01-01T00-00-00.json");
    put("Elmworth-2026-01-03T00-00-00.json");
    put("Elmworth-2026-01-02T00-00-00.json");
    const auto found = AutoBackup::snapshots(AutoBackup::folder());
    EXPECT_EQ(found.at(0).date, at("2026-01-03T00:00Z"));
    EXPECT_EQ(found.at(2).date, at("2026-01-01T00:00Z"));
}

TEST_F(AutoBackupTest, aFolderThatCannotBeListedIsEmpty) {
    EXPECT_TRUE(AutoBackup::snapshots(folder_.path() / "none").empty());
}

/// Snapshots that take themselves, over a clock that a test sets.
class AutoBackupTriggers : public AutoBackupTest {
 protected:
    AutoBackupTriggers() {
        backup_ = std::make_unique<AutoBackup>(
            library_.context(), defaults_, [this] { return clock_; }, library_.runLoop, power_);
    }
    /// Lets every trigger fire and all steps be done.
    void fireAndFinish() {
        library_.runLoop.fire();
        finish();
    }
    void finish() {
        while (isWorking()) library_.runLoop.fire();
    }
    /// Besides the trigger of every six hours there are only the steps, or the wait before them.
    [[nodiscard]] bool isWorking() const { return library_.runLoop.repeatingCount() > 1; }
    void addEntries(int count) {
        const auto project = library_.context().fetch<Project>().front();
        for (int i = 0; i < count; ++i) {
            const Instant start = at("2026-02-01T09:00Z") + i * 1min;
            library_.addEntry(project, start, start + 1min);
        }
        library_.context().save();
    }
    [[nodiscard]] static std::vector<BackupObject> entriesTaken() {
        const auto file = AutoBackup::snapshots(AutoBackup::folder()).at(0).url;
        return test::readBackup(file).clients.at(0).items.at(0).items;
    }

    test::ManualPowerEvents power_;
    Instant clock_ = now;
    std::unique_ptr<AutoBackup> backup_;
};

TEST_F(AutoBackupTriggers, nothingIsWrittenAtTheStartItself) {
    EXPECT_EQ(count(), 0U);
}

TEST_F(AutoBackupTriggers, theFirstTurnOfTheClockTakesOneAndEndsTheFirstDelay) {
    EXPECT_EQ(library_.runLoop.repeatingCount(), 2U);
    fireAndFinish();
    EXPECT_EQ(count(), 1U);
    EXPECT_EQ(library_.runLoop.repeatingCount(), 1U);
}

TEST_F(AutoBackupTriggers, aWakeFiveHoursAfterASnapshotWritesNothing) {
    fireAndFinish();
    clock_ += 5h;
    power_.wake();
    EXPECT_FALSE(isWorking());
    EXPECT_EQ(count(), 1U);
}

TEST_F(AutoBackupTriggers, aWakeADayLaterTakesOne) {
    fireAndFinish();
    clock_ += 24h;
    power_.wake();
    finish();
    EXPECT_EQ(count(), 2U);
}

TEST_F(AutoBackupTriggers, theProfileOfTheMomentIsInIt) {
    ProfileStore profiles(defaults_);
    auto profile = profiles.profile();
    profile.name = "Jane";
    profiles.setProfile(profile);
    fireAndFinish();
    EXPECT_EQ(test::readBackup(AutoBackup::snapshots(AutoBackup::folder()).at(0).url).profile.name,
              "Jane");
}

TEST_F(AutoBackupTriggers, aSnapshotThatCannotBeReadBackIsToldOfUntilOneCan) {
    bool isRefused = true;
    AutoBackup backup(
        library_.context(), defaults_, [this] { return clock_; }, library_.runLoop, power_,
        [&](const auto& file, const auto& written) {
            if (isRefused) refuse(file, written);
        });
    backup_.reset();
    const test::SystemLogCapture log;
    fireAndFinish();
    EXPECT_THAT(log.take(),
                testing::StartsWith("Elmworth: the snapshot of 2026-03-10T12:00:00Z failed its "
                                    "check: clients[0]: not an object (line 3).\n"));
    const Settings elsewhere(defaults_.file());
    const auto failed = AutoBackup::failedCheck(elsewhere);
    ASSERT_TRUE(failed);
    EXPECT_EQ(failed->date, now);
    EXPECT_EQ(failed->reason, "clients[0]: not an object (line 3).");
    EXPECT_EQ(count(), 0U);

    isRefused = false;
    clock_ += 6h;
    fireAndFinish();
    EXPECT_EQ(count(), 1U);
    EXPECT_FALSE(AutoBackup::failedCheck(defaults_));
}

TEST_F(AutoBackupTriggers, aFailureIsDroppedAndTheNextTriggerTriesAgain) {
    writeAtomically(folder_.path() / "Elmworth", "in the way of the folder");
    library_.runLoop.fire();
    EXPECT_FALSE(isWorking());
    std::filesystem::remove(folder_.path() / "Elmworth");
    fireAndFinish();
    EXPECT_EQ(count(), 1U);
}

TEST_F(AutoBackupTriggers, aSnapshotIsMadeInSmallStepsAndHasItsNameAtTheEndAlone) {
    addEntries(3000);
    library_.runLoop.fire();
    std::size_t steps = 0;
    for (; isWorking(); ++steps) {
        EXPECT_EQ(count(), 0U);
        library_.runLoop.fire();
    }
    EXPECT_GE(steps, 3000 / BackupWalk::entriesPerStep);
    EXPECT_EQ(count(), 1U);
    EXPECT_EQ(entriesTaken().size(), 3001U);
}

TEST_F(AutoBackupTriggers, aChangeMeanwhileBeginsItAnewSoThatItShowsOneState) {
    addEntries(3000);
    for (const bool isSaved : {true, false}) {
        library_.runLoop.fire();
        for (int i = 0; i < 8; ++i) library_.runLoop.fire();
        ASSERT_TRUE(isWorking());
        const auto entries =
            library_.context().fetch(Query<TimeEntry>{.sortBy = {sortedBy<&TimeEntry::start>()}});
        entries.front()->notes = "changed";
        library_.context().deleteRecord(entries.back());
        if (isSaved) library_.context().save();
        finish();
        const auto found = entriesTaken();
        ASSERT_EQ(found.size(), entries.size() - 1);
        EXPECT_EQ(found.front()["notes"], Value("changed"));
        EXPECT_EQ(found,
                  test::makeBackup(library_.context(), {}, now).clients.at(0).items.at(0).items);
        entries.front()->notes = "";
        library_.context().save();
        clock_ += 24h;
    }
    EXPECT_EQ(count(), 2U);
}

TEST_F(AutoBackupTriggers, theEndOfTheProgramInBetweenLeavesNothing) {
    addEntries(3000);
    for (int i = 0; i < 5; ++i) library_.runLoop.fire();
    ASSERT_TRUE(isWorking());
    const auto folder = AutoBackup::folder();
    EXPECT_FALSE(std::filesystem::is_empty(folder));
    backup_.reset();
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    library_.runLoop.fire();
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

}  // namespace
}  // namespace elmworth
