// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/AutoBackup.h"

#include <gtest/gtest.h>

#include "exchange/BackupDecoder.h"
#include "platform/AtomicFile.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;
using test::TemporaryFolder;
using test::TestLibrary;

const Instant now = at("2026-03-10T12:00Z");

class AutoBackupTest : public testing::Test {
 protected:
    AutoBackupTest() {
        const auto project = library_.addProject("Web", library_.addClient("Acme"));
        library_.addEntry(project, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
        library_.context().save();
    }
    auto run(Instant instant) {
        return AutoBackup::runIfDue(library_.context(), {}, instant, folder_.path());
    }
    void put(const std::string& name) { writeAtomically(folder_.path() / name, "{}"); }
    [[nodiscard]] std::size_t count() const { return AutoBackup::snapshots(folder_.path()).size(); }

    TestLibrary library_;
    TemporaryFolder folder_;
};

TEST_F(AutoBackupTest, aSnapshotIsNamedByItsInstantInUTC) {
    const auto file = run(now);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->filename(), "Elmworth-2026-03-10T12-00-00.json");
    EXPECT_EQ(decodeBackupFile(*file).clients.size(), 1U);
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
    EXPECT_FALSE(std::filesystem::exists(folder_.path() / "Elmworth-2026-02-01T00-00-00.json"));
}

TEST_F(AutoBackupTest, anEmptyLibraryWritesAndPrunesNothing) {
    TestLibrary empty;
    for (int day = 10; day <= 25; ++day) {
        put("Elmworth-2026-02-" + std::to_string(day) + "T00-00-00.json");
    }
    EXPECT_FALSE(AutoBackup::runIfDue(empty.context(), {}, now, folder_.path()));
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
    const auto found = AutoBackup::snapshots(folder_.path());
    EXPECT_EQ(found.at(0).date, at("2026-01-03T00:00Z"));
    EXPECT_EQ(found.at(2).date, at("2026-01-01T00:00Z"));
}

TEST_F(AutoBackupTest, aFolderThatCannotBeListedIsEmpty) {
    EXPECT_TRUE(AutoBackup::snapshots(folder_.path() / "none").empty());
}

}  // namespace
}  // namespace elmworth
