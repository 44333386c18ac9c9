// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "support/FaultyVfs.h"
#include "support/LibraryText.h"
#include "support/RawDatabase.h"
#include "support/SystemLogCapture.h"
#include "support/TestTimer.h"

namespace elmworth {
namespace {

using test::FaultyVfs;
using test::libraryText;
using test::RawDatabase;
using test::TestTimer;
using Duration = FaultyVfs::Duration;

/// A person's library at 10:00, on a disk that can fail. A timer runs on "Website" since 09:00.
struct Desk {
    Desk() : timer(test::TestLibrary::emptyFile()) {
        auto& library = timer.library;
        acme = library.addClient("Acme");
        website = library.addProject("Website", acme);
        app = library.addProject("App", acme);
        globex = library.addClient("Globex");
        const auto shop = library.addProject("Shop", globex);
        library.addEntry(shop, time("07:00"), time("08:00"));
        finished = library.addEntry(app, time("08:00"), time("09:00"));
        timer.service->start(website);
        timer.setTime("10:00");
    }
    static Instant time(const char* text) { return TestTimer::today(text); }

    [[nodiscard]] UnitOfWork& context() { return timer.library.context(); }
    [[nodiscard]] std::string running() const {
        const auto& entry = timer.service->running();
        return entry ? entry->project->name.get() : "nothing";
    }
    void closeLibrary() {
        timer.service.reset();
        timer.library.close();
    }

    FaultyVfs disk;
    TestTimer timer;
    Ref<Client> acme, globex;
    Ref<Project> website, app;
    Ref<TimeEntry> finished;
};

struct Work {
    const char* name;
    void (*perform)(Desk&);
    const char* running;  ///< the project that the timer is on afterwards
    bool isTimerRunningBefore = true;
};

constexpr Work works[] = {
    {"stop", [](Desk& desk) { desk.timer.service->stop(); }, "nothing"},
    {"stopEarlier", [](Desk& desk) { desk.timer.service->stop(Desk::time("09:30")); }, "nothing"},
    {"start", [](Desk& desk) { desk.timer.service->start(desk.app); }, "App", false},
    {"switchProjects", [](Desk& desk) { desk.timer.service->start(desk.app); }, "App"},
    {"continueEntry", [](Desk& desk) { desk.timer.service->continueEntry(desk.finished); }, "App"},
    {"discardSleep",
     [](Desk& desk) {
         desk.timer.sleep("10:00", "11:00");
         desk.timer.service->discardAwayTime();
     },
     "Website"},
    {"createRecords",
     [](Desk& desk) {
         const auto client = desk.timer.library.addClient("Initech");
         desk.timer.library.addInvoice("1", client);
         desk.timer.library.addEntry(desk.timer.library.addProject("Printer", client),
                                     desk.timer.now, desk.timer.now);
         desk.context().saveQuietly();
     },
     "Website"},
    {"deleteClient",
     [](Desk& desk) {
         desk.context().deleteRecord(desk.globex);
         desk.context().saveQuietly();
     },
     "Website"},
    {"changeRecords",
     [](Desk& desk) {
         desk.acme->name = "Acme Corporation";
         desk.acme->address = std::string(9000, 'x');  // more than one page
         desk.app->client = desk.globex;
         desk.context().saveQuietly();
     },
     "Website"},
};

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

class WriteFailure : public testing::TestWithParam<std::tuple<Work, Failure>> {
 protected:
    /// Calls `check` with a desk where the work met a failure at the first, second … operation of
    /// the disk, until the work is done without one.
    template <class Check>
    static void atEachOperation(Check check) {
        const auto& [work, failure] = GetParam();
        int failuresMet = 0;
        for (int n = 1; n < 200; ++n) {
            SCOPED_TRACE("operation " + std::to_string(n));
            const test::SystemLogCapture log;
            Desk desk;
            if (!work.isTimerRunningBefore) desk.timer.service->stop();
            const auto before = libraryText(desk.context());
            desk.disk.failAt(n, failure.code, failure.duration);
            work.perform(desk);
            if (!desk.disk.hasFailed()) {
                EXPECT_GT(failuresMet, 3);
                return;
            }
            ++failuresMet;
            check(desk, before);
            if (HasFatalFailure()) return;
        }
        FAIL() << "the work is never done";
    }
};

TEST_P(WriteFailure, leavesMemoryIntactAndTheNextSaveCarriesTheChanges) {
    atEachOperation([](Desk& desk, const std::string& /*before*/) {
        const auto& work = std::get<Work>(GetParam());
        const auto wanted = libraryText(desk.context());
        EXPECT_EQ(desk.running(), work.running);
        desk.disk.heal();
        ASSERT_NO_THROW(desk.context().save());
        EXPECT_FALSE(desk.context().hasChanges());
        EXPECT_EQ(libraryText(desk.context()), wanted);
        desk.timer.restart();
        EXPECT_EQ(libraryText(desk.context()), wanted);
        EXPECT_EQ(desk.running(), work.running);
        desk.closeLibrary();
        EXPECT_TRUE(RawDatabase(desk.timer.library.file()).faults().empty());
    });
}

TEST_P(WriteFailure, followedByACrashLeavesAllOfTheLastSaveOrOfThisOne) {
    atEachOperation([](Desk& desk, const std::string& before) {
        const auto after = libraryText(desk.context());
        desk.closeLibrary();
        desk.disk.heal();
        desk.timer.library.open();
        const auto found = libraryText(desk.context());
        EXPECT_TRUE(found == before || found == after) << found;
        desk.timer.library.close();
        EXPECT_TRUE(RawDatabase(desk.timer.library.file()).faults().empty());
    });
}

INSTANTIATE_TEST_SUITE_P(Disk, WriteFailure,
                         testing::Combine(testing::ValuesIn(works), testing::ValuesIn(failures)),
                         [](const auto& row) {
                             return std::string(std::get<0>(row.param).name) + '_' +
                                    std::get<1>(row.param).name;
                         });

TEST(WriteFailureInTheTimer, isLoggedInOneLineAndTheNextSaveRetries) {
    const test::SystemLogCapture log;
    Desk desk;
    desk.disk.failAt(1, SQLITE_FULL, Duration::lasting);
    desk.timer.service->stop();
    EXPECT_EQ(log.take(), "Elmworth: save failed: database or disk is full\n");
    EXPECT_TRUE(desk.context().hasChanges());
    desk.timer.service->start(desk.app);
    EXPECT_EQ(log.take(), "Elmworth: save failed: database or disk is full\n");
    desk.disk.heal();
    desk.timer.setTime("10:30");
    desk.timer.service->stop();
    EXPECT_EQ(log.take(), "");
    desk.timer.restart();
    EXPECT_EQ(desk.timer.spans(),
              (std::vector<std::string>{"07:00:00-08:00:00", "08:00:00-09:00:00",
                                        "09:00:00-10:00:00", "10:00:00-10:30:00"}));
}

TEST(WriteFailureWhileTheLogIsMoved, losesNothing) {
    for (int n = 1; n < 200; ++n) {
        SCOPED_TRACE("operation " + std::to_string(n));
        Desk desk;
        for (int i = 0; i < 260; ++i) {
            desk.acme->name = std::to_string(i);
            desk.context().save();
        }
        desk.disk.failAt(n, SQLITE_FULL, Duration::lasting);
        desk.timer.library.runLoop.turn();
        const bool isDone = !desk.disk.hasFailed();
        desk.disk.heal();
        desk.acme->email = "office@acme.example";
        desk.context().save();
        const auto wanted = libraryText(desk.context());
        desk.timer.restart();
        ASSERT_EQ(libraryText(desk.context()), wanted);
        desk.closeLibrary();
        ASSERT_TRUE(RawDatabase(desk.timer.library.file()).faults().empty());
        if (isDone) {
            EXPECT_GT(n, 4);
            return;
        }
    }
    FAIL() << "the log is never moved";
}

TEST(WriteFailureAtTheCreation, isRefusedAndTheNextTrySucceeds) {
    for (int n = 1; n < 200; ++n) {
        SCOPED_TRACE("operation " + std::to_string(n));
        FaultyVfs disk;
        const test::TemporaryFolder folder;
        test::ManualRunLoop runLoop;
        const LibraryOptions configuration{folder.path() / "library.sqlite"};
        disk.failAt(n, SQLITE_FULL, Duration::lasting);
        try {
            const Library container(configuration, runLoop);
        } catch (const LibraryError&) {
        }
        const bool isDone = !disk.hasFailed();
        disk.heal();
        Library container(configuration, runLoop);
        ASSERT_EQ(container.mainContext().fetchCount<Client>(), 0U);
        container.mainContext().insert(std::make_shared<Client>("Acme"));
        container.mainContext().save();
        ASSERT_EQ(folder.names().size(), 2U);  // the library and its log
        if (isDone) return;
    }
    FAIL() << "the library is never made";
}

TEST(WriteFailureAtTheOpening, losesNothing) {
    for (int n = 1; n < 200; ++n) {
        SCOPED_TRACE("operation " + std::to_string(n));
        Desk desk;
        const auto wanted = libraryText(desk.context());
        desk.closeLibrary();
        desk.disk.failAt(n, SQLITE_FULL, Duration::lasting);
        try {
            desk.timer.library.open();
        } catch (const LibraryError&) {
        }
        const bool isDone = !desk.disk.hasFailed();
        desk.timer.library.close();
        desk.disk.heal();
        desk.timer.library.open();
        ASSERT_EQ(libraryText(desk.context()), wanted);
        if (isDone) return;
    }
    FAIL() << "the library is never opened";
}

}  // namespace
}  // namespace elmworth
