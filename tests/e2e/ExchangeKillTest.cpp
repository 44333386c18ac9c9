// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A process that is killed while it restores or imports leaves all of that, or nothing.

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <random>

#include "exchange/BackupDocuments.h"
#include "exchange/CSVImporter.h"
#include "exchange/RandomLibrary.h"
#include "exchange/Restore.h"
#include "support/BackupObjects.h"
#include "support/RawDatabase.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;
using test::TestLibrary;
using Time = std::chrono::steady_clock;
using Work = std::function<void(UnitOfWork&, ProfileStore&)>;

int killCount() {
    const char* text = std::getenv("ELMWORTH_KILLS");
    return text != nullptr ? std::atoi(text) : 40;
}

std::filesystem::path settingsOf(const std::filesystem::path& library) {
    return library.parent_path() / "Elmworth.ini";
}

/// A process that opens a library, says "r", does some work on it, says "d", and waits.
class WorkingProcess {
 public:
    WorkingProcess(const std::filesystem::path& library, const Work& work) {
        int ends[2];
        if (::pipe(ends) != 0) throw std::runtime_error("no pipe");
        process_ = ::fork();
        if (process_ == 0) run(library, work, ends[1]);
        ::close(ends[1]);
        report_ = ends[0];
    }
    WorkingProcess(const WorkingProcess&) = delete;
    WorkingProcess& operator=(const WorkingProcess&) = delete;
    ~WorkingProcess() {
        kill();
        ::close(report_);
    }

    /// Waits for the next word; absent when it does not come within `timeout`, or never will.
    std::optional<char> next(std::chrono::microseconds timeout) {
        const auto end = Time::now() + timeout;
        do {
            pollfd waiting{report_, POLLIN, 0};
            char word = 0;
            if (::poll(&waiting, 1, timeout > 1s ? 1000 : 0) == 0) continue;
            return ::read(report_, &word, 1) == 1 ? std::optional(word) : std::nullopt;
        } while (Time::now() < end);
        return std::nullopt;
    }
    void kill() {
        if (process_ < 0) return;
        ::kill(process_, SIGKILL);
        ::waitpid(std::exchange(process_, -1), nullptr, 0);
    }

 private:
    [[noreturn]] static void run(const std::filesystem::path& library, const Work& work,
                                 int report) {
        test::ManualRunLoop runLoop;
        Library container({library}, runLoop);
        Settings defaults(settingsOf(library));
        ProfileStore profiles(defaults);
        if (::write(report, "r", 1) != 1) ::_exit(1);
        work(container.mainContext(), profiles);
        if (::write(report, "d", 1) != 1) ::_exit(1);
        while (true) ::pause();
    }

    pid_t process_ = -1;
    int report_ = -1;
};

std::string documentOf(UnitOfWork& context, const BusinessProfile& profile) {
    return test::encode(test::makeBackup(context, profile, at("2026-07-01T12:00Z")));
}

/// What a start of the program finds.
std::string documentOf(TestLibrary& library) {
    Settings defaults(settingsOf(library.file()));
    ProfileStore profiles(defaults);
    finishRestore(library.context(), profiles);
    return documentOf(library.context(), profiles.profile());
}

struct Tally {
    int nothing = 0;
    int whole = 0;
    int acknowledged = 0;
};

/// Kills a process at random moments of `work` and checks what it leaves in a library that holds
/// `before` until `work` makes it hold `after`.
class ExchangeKill : public testing::Test {
 protected:
    void killAtRandomMoments(const Work& work, const std::string& after) {
        const auto duration = workOnce(work, after);
        std::mt19937 random(20260321);
        Tally tally;
        for (int i = 1; i <= killCount(); ++i) {
            SCOPED_TRACE("kill " + std::to_string(i));
            killAfter(work, duration * (random() % 2500) / 1000, after, tally);
            if (HasFailure()) return;
        }
        std::cout << killCount() << " kills in " << duration.count() << " µs of work: nothing done "
                  << tally.nothing << ", all done " << tally.whole << ", of which acknowledged "
                  << tally.acknowledged << '\n';
    }

    /// What a library holds in the beginning.
    std::function<void(TestLibrary&)> prepare = [](TestLibrary&) {};

 private:
    std::chrono::microseconds workOnce(const Work& work, const std::string& after) {
        TestLibrary library;
        prepare(library);
        library.close();
        WorkingProcess process(library.file(), work);
        EXPECT_EQ(process.next(60s), 'r');
        const auto start = Time::now();
        EXPECT_EQ(process.next(60s), 'd');
        const auto end = Time::now();
        process.kill();
        library.open();
        EXPECT_EQ(documentOf(library), after);
        return std::chrono::duration_cast<std::chrono::microseconds>(end - start);
    }

    void killAfter(const Work& work, std::chrono::microseconds delay, const std::string& after,
                   Tally& tally) {
        TestLibrary library;
        prepare(library);
        const std::string before = documentOf(library);
        library.close();
        WorkingProcess process(library.file(), work);
        ASSERT_EQ(process.next(60s), 'r');
        const bool isAcknowledged = process.next(delay).has_value();
        process.kill();
        library.open();
        const std::string found = documentOf(library);
        library.close();
        EXPECT_TRUE(found == after || (!isAcknowledged && found == before));
        EXPECT_TRUE(test::RawDatabase(library.file()).faults().empty());
        ++(found == after ? tally.whole : tally.nothing);
        if (isAcknowledged) ++tally.acknowledged;
    }
};

TEST_F(ExchangeKill, leavesAllOfARestoreAndItsProfileOrNothing) {
    Backup backup;
    {
        TestLibrary library;
        for (unsigned seed = 1; seed <= 20; ++seed) {
            auto project = test::projectObject("Project");
            for (int i = 0; i < 300; ++i) {
                const Instant start = at("2026-03-01T09:00Z") + i * 1h;
                project.items.push_back(test::entryObject(start, start + 30min, "notes"));
            }
            backup.clients.push_back(
                test::clientObject("Client " + std::to_string(seed), {std::move(project)}));
        }
        restore(backup, library.context());
        const BusinessProfile profile{.name = "Jane", .nextInvoiceNumber = 42};
        backup = test::makeBackup(library.context(), profile, at("2026-07-01T12:00Z"));
    }
    killAtRandomMoments(
        [&](UnitOfWork& context, ProfileStore& profiles) { restore(backup, context, profiles); },
        test::encode(backup));
}

TEST_F(ExchangeKill, leavesAllOfAnImportOrNothing) {
    std::vector<CSVImporter::Row> rows;
    for (int i = 0; i < 6000; ++i) {
        const Instant start = at("2026-03-01T09:00Z") + i * 1h;
        rows.push_back({"Client " + std::to_string(i % 9), "Project", "notes", start, start + 1h});
    }
    prepare = [](TestLibrary& library) {
        library.addEntry(library.addProject("Project", library.addClient("Client 1")),
                         at("2026-02-01T10:00Z"), at("2026-02-01T11:00Z"));
        library.context().save();
    };
    TestLibrary library;
    prepare(library);
    CSVImporter::apply(rows, library.context());
    killAtRandomMoments(
        [&](UnitOfWork& context, ProfileStore&) { CSVImporter::apply(rows, context); },
        documentOf(library));
}

}  // namespace
}  // namespace elmworth
