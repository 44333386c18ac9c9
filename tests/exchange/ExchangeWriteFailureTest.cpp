// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A disk that fails at any moment leaves all of a restore or an import, or nothing of it.

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "exchange/BackupDocuments.h"
#include "exchange/BackupExporter.h"
#include "exchange/CSVImporter.h"
#include "exchange/RandomLibrary.h"
#include "exchange/Restore.h"
#include "support/BackupObjects.h"
#include "support/FaultyVfs.h"
#include "support/FileSizeLimit.h"
#include "support/LibraryText.h"
#include "support/RawDatabase.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;
using test::FaultyVfs;
using test::libraryText;
using test::TestLibrary;
using Duration = FaultyVfs::Duration;

struct Failure {
    const char* name;
    int code;
    Duration duration;
};
constexpr Failure failures[] = {
    {"diskFullOnce", SQLITE_FULL, Duration::once},
    {"diskStaysFull", SQLITE_FULL, Duration::lasting},
    {"writeErrorOnce", SQLITE_IOERR_WRITE, Duration::once},
    {"writeErrorsStay", SQLITE_IOERR_WRITE, Duration::lasting},
    {"syncErrorOnce", SQLITE_IOERR_FSYNC, Duration::once},
};

std::string documentOf(TestLibrary& library) {
    return test::encode(test::makeBackup(library.context(), {}, at("2026-07-01T12:00Z")));
}

/// A document that takes several pages of a library.
const Backup& someBackup() {
    static const Backup backup = [] {
        TestLibrary library(TestLibrary::emptyFile());
        test::RandomLibrary(library, 7, test::RandomLibrary::Contents::comesBack);
        library.addClient("Long")->address = std::string(20'000, 'x');
        return test::makeBackup(library.context(), {}, at("2026-07-01T12:00Z"));
    }();
    return backup;
}

std::vector<CSVImporter::Row> someRows() {
    std::vector<CSVImporter::Row> rows;
    for (int i = 0; i < 60; ++i) {
        const Instant start = at("2026-03-01T09:00Z") + i * 1h;
        const auto number = std::to_string(i % 7);
        rows.push_back(
            {"Client " + number, "Project " + number, std::string(300, 'n'), start, start + 1h});
    }
    return rows;
}

void expectSound(TestLibrary& library) {
    library.close();
    EXPECT_TRUE(test::RawDatabase(library.file()).faults().empty());
}

class ExchangeWriteFailure : public testing::TestWithParam<Failure> {
 protected:
    /// Calls `attempt` with a disk whose first, second … operation fails, until none fails any
    /// more.
    template <class Attempt>
    static void atEachOperation(Attempt attempt) {
        for (int n = 1; n < 400; ++n) {
            SCOPED_TRACE("operation " + std::to_string(n));
            FaultyVfs disk;
            TestLibrary library(TestLibrary::emptyFile());
            const bool hasFailed = attempt(disk, library, n);
            expectSound(library);
            if (HasFailure()) return;
            if (hasFailed) continue;
            EXPECT_GT(n, 5);
            return;
        }
        FAIL() << "the work is never done";
    }
    static void failAt(FaultyVfs& disk, int n) {
        disk.failAt(n, GetParam().code, GetParam().duration);
    }
};

TEST_P(ExchangeWriteFailure, leavesAnEmptyLibraryOfARestoreWhichThenSucceeds) {
    const std::string whole = test::encode(someBackup());
    atEachOperation([&](FaultyVfs& disk, TestLibrary& library, int n) {
        const std::string empty = documentOf(library);
        failAt(disk, n);
        bool isRestored = true;
        try {
            restore(someBackup(), library.context());
        } catch (const StoreError&) {
            isRestored = false;
        }
        const bool hasFailed = disk.hasFailed();
        disk.heal();
        EXPECT_EQ(isRestored, !hasFailed);
        EXPECT_FALSE(library.context().hasChanges());
        EXPECT_EQ(documentOf(library), isRestored ? whole : empty);
        if (isRestored) return hasFailed;
        restore(someBackup(), library.context());
        library.reopen();
        EXPECT_EQ(documentOf(library), whole);
        return hasFailed;
    });
}

TEST_P(ExchangeWriteFailure, inARestoreWithItsProfileLeavesBothOrNeither) {
    const std::string whole = test::encode(someBackup());
    auto backup = someBackup();
    backup.profile.name = "New";
    atEachOperation([&](FaultyVfs& disk, TestLibrary& library, int n) {
        const std::string empty = documentOf(library);
        const auto settings = library.folder.path() / "Elmworth.ini";
        bool isRestored = true;
        failAt(disk, n);
        {
            Settings defaults(settings);
            ProfileStore profiles(defaults);
            try {
                restore(backup, library.context(), profiles);
            } catch (const StoreError&) {
                isRestored = false;
                EXPECT_EQ(profiles.profile().name, "");
            }
        }
        const bool hasFailed = disk.hasFailed();
        library.close();
        disk.heal();
        library.open();
        Settings defaults(settings);
        ProfileStore profiles(defaults);
        finishRestore(library.context(), profiles);
        const std::string found = documentOf(library);
        EXPECT_TRUE(found == whole || (!isRestored && found == empty));
        EXPECT_EQ(profiles.profile().name, found == whole ? "New" : "");
        if (found == empty) restore(backup, library.context(), profiles);
        EXPECT_EQ(documentOf(library), whole);
        EXPECT_EQ(profiles.profile().name, "New");
        return hasFailed;
    });
}

TEST_P(ExchangeWriteFailure, leavesAnImportToTheNextSaveOrToARollback) {
    atEachOperation([&](FaultyVfs& disk, TestLibrary& library, int n) {
        const auto client = library.addClient("Client 1");
        library.addEntry(library.addProject("Project 1", client), at("2026-03-01T10:00Z"),
                         at("2026-03-01T11:00Z"));
        library.context().save();
        const auto before = libraryText(library.context());
        failAt(disk, n);
        try {
            CSVImporter::apply(someRows(), library.context());
        } catch (const StoreError&) {
            EXPECT_TRUE(library.context().hasChanges());
        }
        const bool hasFailed = disk.hasFailed();
        disk.heal();
        const auto wanted = libraryText(library.context());
        if (n % 2 == 0) {
            library.context().rollback();
        } else {
            library.context().save();
        }
        library.reopen();
        EXPECT_EQ(libraryText(library.context()), hasFailed && n % 2 == 0 ? before : wanted);
        return hasFailed;
    });
}

TEST_P(ExchangeWriteFailure, inAnImportThatACrashFollowsLeavesAllOrNothing) {
    atEachOperation([&](FaultyVfs& disk, TestLibrary& library, int n) {
        failAt(disk, n);
        try {
            CSVImporter::apply(someRows(), library.context());
        } catch (const StoreError&) {
        }
        const bool hasFailed = disk.hasFailed();
        library.close();
        disk.heal();
        library.open();
        const auto count = library.context().fetchCount<TimeEntry>();
        EXPECT_TRUE(count == someRows().size() || (hasFailed && count == 0)) << count;
        EXPECT_EQ(library.context().fetchCount<Client>(), count == 0 ? 0U : 7U);
        return hasFailed;
    });
}

INSTANTIATE_TEST_SUITE_P(Disk, ExchangeWriteFailure, testing::ValuesIn(failures), test::rowName);

/// Work that is so large that part of it goes to the disk before the save.
class LargeExchangeWriteFailure : public testing::TestWithParam<Failure> {
 protected:
    static constexpr int entryCount = 9000;

    /// Does `work` with disks that fail sooner or later, and expects an empty library, in memory
    /// and on the disk, or `entryCount` entries.
    template <class Work>
    static void atSomeOperations(Work work) {
        int failuresMet = 0;
        for (int n = 1; n < 100'000; n *= 3) {
            SCOPED_TRACE("operation " + std::to_string(n));
            FaultyVfs disk;
            TestLibrary library(TestLibrary::emptyFile());
            disk.failAt(n, GetParam().code, GetParam().duration);
            try {
                work(library.context());
            } catch (const StoreError&) {
                library.context().rollback();
            }
            const bool hasFailed = disk.hasFailed();
            disk.heal();
            const std::size_t expected = hasFailed ? 0 : entryCount;
            EXPECT_EQ(library.context().fetchCount<TimeEntry>(), expected);
            library.reopen();
            EXPECT_EQ(library.context().fetchCount<TimeEntry>(), expected);
            EXPECT_EQ(library.context().fetchCount<Client>(), hasFailed ? 0U : 1U);
            expectSound(library);
            if (HasFailure()) return;
            if (!hasFailed) break;
            ++failuresMet;
        }
        EXPECT_GT(failuresMet, 2);
    }
    static Instant start(int i) { return at("2020-01-01T00:00Z") + i * 1h; }
};

TEST_P(LargeExchangeWriteFailure, leavesNothingOfARestore) {
    Backup backup;
    std::vector<BackupObject> entries;
    for (int i = 0; i < entryCount; ++i) {
        entries.push_back(test::entryObject(start(i), start(i) + 1h, "notes"));
    }
    backup.clients.push_back(
        test::clientObject("Acme", {test::projectObject("", std::move(entries))}));
    atSomeOperations([&](UnitOfWork& context) { restore(backup, context); });
}

TEST_P(LargeExchangeWriteFailure, leavesNothingOfAnImport) {
    std::vector<CSVImporter::Row> rows;
    for (int i = 0; i < entryCount; ++i) {
        rows.push_back({"Acme", "Web", "notes", start(i), start(i) + 1h});
    }
    atSomeOperations([&](UnitOfWork& context) { CSVImporter::apply(rows, context); });
}

INSTANTIATE_TEST_SUITE_P(Disk, LargeExchangeWriteFailure,
                         testing::Values(failures[0], failures[1], failures[4]), test::rowName);

TEST(BackupToAFullDisk, leavesTheOldFileAndNothingBesideIt) {
    TestLibrary library;
    restore(someBackup(), library.context());
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "backup.json";
    writeAtomically(file, "the old one");
    {
        const test::FileSizeLimit fullDisk(10'000);
        EXPECT_THROW(
            BackupExporter::writeFile(library.context(), {}, at("2026-07-01T12:00Z"), file),
            std::filesystem::filesystem_error);
    }
    EXPECT_EQ(readFile(file), "the old one");
    EXPECT_EQ(folder.names().size(), 1U);
}

}  // namespace
}  // namespace elmworth
