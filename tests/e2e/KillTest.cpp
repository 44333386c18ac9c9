// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <random>

#include "e2e/LibraryState.h"
#include "e2e/Worker.h"
#include "support/RawDatabase.h"
#include "support/TestLibrary.h"
#include "tracking/TimerService.h"

namespace elmworth {
namespace {

using test::Difference;
using test::LibraryState;
using Time = std::chrono::steady_clock;

int killCount() {
    const char* text = std::getenv("ELMWORTH_KILLS");
    return text != nullptr ? std::atoi(text) : 60;
}

/// A process that works on the library until it is killed, and what it reported.
class WorkerProcess {
 public:
    WorkerProcess(const std::filesystem::path& library, unsigned seed) {
        int ends[2];
        if (::pipe(ends) != 0) throw std::runtime_error("no pipe");
        process_ = ::fork();
        if (process_ == 0) {
            ::close(ends[0]);
            test::workUntilKilled(library, seed, ends[1]);
        }
        ::close(ends[1]);
        report_ = ends[0];
        ::fcntl(report_, F_SETFL, O_NONBLOCK);
    }
    WorkerProcess(const WorkerProcess&) = delete;
    WorkerProcess& operator=(const WorkerProcess&) = delete;
    ~WorkerProcess() { ::close(report_); }

    /// Lets it begin `steps` steps and then work for `rest`, and kills it. False when it ended by
    /// itself.
    [[nodiscard]] bool killAfter(int steps, std::chrono::microseconds rest) {
        bool lives = true;
        while (lives && begun_ < steps) lives = readMore(10000);
        const auto end = Time::now() + rest;
        while (lives && Time::now() < end) lives = readMore(0);
        ::kill(process_, SIGKILL);
        while (readMore(10000)) {
        }
        int status = 0;
        ::waitpid(process_, &status, 0);
        return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }

    [[nodiscard]] const std::string& report() const noexcept { return text_; }

 private:
    /// Reads what is there within `milliseconds`; false at the end of the report.
    bool readMore(int milliseconds) {
        pollfd waiting{report_, POLLIN, 0};
        if (::poll(&waiting, 1, milliseconds) == 0) return true;
        char buffer[65536];
        const ssize_t count = ::read(report_, buffer, sizeof buffer);
        if (count <= 0) return false;
        const auto from = text_.size() < 6 ? 0 : text_.size() - 6;
        text_.append(buffer, static_cast<std::size_t>(count));
        for (auto i = text_.find("begin ", from); i != std::string::npos;
             i = text_.find("begin ", i + 1))
            ++begun_;
        return true;
    }

    pid_t process_ = -1;
    int report_ = -1;
    int begun_ = 0;
    std::string text_;
};

/// What the report promises: the state of the last acknowledged save, and the step that was begun
/// after it, if any.
struct Promise {
    Promise(LibraryState before, const std::string& report) : state(std::move(before)) {
        std::istringstream lines(report.substr(0, report.rfind('\n') + 1));
        LibraryState next = state;
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("begin ")) step = line.substr(6);
            if (line.starts_with("binds ")) boundEntries = std::stoi(line.substr(6));
            if (line.starts_with("put ")) next.put(line.substr(4));
            if (line.starts_with("remove ")) next.remove(line.substr(7));
            if (line != "saved") continue;
            state = next;
            step.clear();
            ++saves;
        }
    }
    LibraryState state;
    std::string step;
    int boundEntries = 0;  ///< of the invoice that the step makes or deletes
    int saves = 0;
};

/// Whether the step that was begun as a whole, and nothing but it, leads to `after`.
bool isWhole(const Promise& promise, const LibraryState& after) {
    const auto& [before, step, boundEntries, saves] = promise;
    const auto clients = after.differenceSince(before, "Client");
    const auto projects = after.differenceSince(before, "Project");
    const auto entries = after.differenceSince(before, "TimeEntry");
    const auto invoices = after.differenceSince(before, "Invoice");
    const Difference none;
    const bool timeOnly = clients == none && projects == none && invoices == none;
    if (step == "start" || step == "continue")
        return timeOnly && entries.added == 1 && entries.changed + entries.removed <= 1;
    if (step == "stop")
        return timeOnly && entries.added == 0 && entries.changed + entries.removed == 1;
    if (step == "trackThreeHours") return timeOnly && entries == Difference{3, 0, 0};
    if (step == "renameProject")
        return clients == none && projects == Difference{0, 1, 0} && entries == none;
    if (step == "createClient")
        return clients == Difference{1, 0, 0} && projects == Difference{1, 0, 0} && entries == none;
    if (step == "deleteProject") {
        const bool isArchived = projects == Difference{0, 1, 0} && entries == none;
        const bool isGone = projects == Difference{0, 0, 1} && entries.added + entries.changed == 0;
        return clients == none && invoices == none && (isArchived || isGone);
    }
    if (step == "deleteClient")
        return clients == Difference{0, 0, 1} && entries.added + entries.changed == 0;
    if (step == "createInvoice")
        return invoices == Difference{1, 0, 0} && entries == Difference{0, boundEntries, 0};
    if (step == "deleteInvoice")
        return invoices == Difference{0, 0, 1} && entries == Difference{0, boundEntries, 0};
    return false;
}

/// An invoice has entries, and those with an invoice are those with a frozen rate.
void expectWholeInvoices(UnitOfWork& context) {
    for (const auto& invoice : context.fetch<Invoice>()) {
        EXPECT_FALSE(invoice->entries().empty()) << invoice->number.get();
        for (const auto& entry : invoice->entries()) EXPECT_TRUE(entry->billedRateCents.get());
    }
    for (const auto& entry : context.fetch<TimeEntry>()) {
        EXPECT_EQ(bool(entry->invoice), entry->billedRateCents.get().has_value());
        EXPECT_EQ(bool(entry->invoice), entry->invoice.get() != nullptr);
    }
}

class KillTest : public testing::Test {
 protected:
    [[nodiscard]] std::filesystem::path file() const { return folder_.path() / "library.sqlite"; }

    /// Opens the library, checks what always holds, and gives what it holds.
    LibraryState inspect() {
        LibraryState state;
        {
            Library container({file()}, runLoop_);
            auto& context = container.mainContext();
            state = LibraryState(test::libraryText(context));
            expectWholeInvoices(context);
            const Query<TimeEntry> open{.predicate = key<&TimeEntry::end>() == absent};
            EXPECT_LE(context.fetchCount(open), 1U);
            TimerService timer(context, currentInstant, runLoop_, &Calendar::current);
            timer.restore();
            EXPECT_EQ(context.fetchCount(open), timer.running() ? 1U : 0U);
            EXPECT_EQ(LibraryState(test::libraryText(context)), state);
        }
        EXPECT_EQ(test::RawDatabase(file()).faults(), std::vector<std::string>{});
        return state;
    }

    test::TemporaryFolder folder_;
    test::ManualRunLoop runLoop_;
};

TEST_F(KillTest, whatWasAcknowledgedIsThereAndNothingIsHalfDone) {
    std::mt19937 random(20260304);
    const auto pick = [&](int last) { return std::uniform_int_distribution<int>(0, last)(random); };
    LibraryState state;
    int saves = 0, killsInAStep = 0, unacknowledged = 0;
    const int kills = killCount();
    for (int i = 1; i <= kills; ++i) {
        SCOPED_TRACE("kill " + std::to_string(i));
        WorkerProcess worker(file(), static_cast<unsigned>(i));
        ASSERT_TRUE(worker.killAfter(pick(8), std::chrono::microseconds(pick(12000))))
            << worker.report();
        const Promise promise(state, worker.report());
        state = inspect();
        if (state != promise.state) {
            ++unacknowledged;
            ASSERT_TRUE(isWhole(promise, state)) << promise.step << '\n'
                                                 << state.changesSince(promise.state);
        }
        if (HasFailure()) return;
        saves += promise.saves;
        killsInAStep += promise.step.empty() ? 0 : 1;
    }
    std::cout << kills << " kills, " << killsInAStep << " of them within a step; " << saves
              << " acknowledged saves, all there; " << unacknowledged
              << " saves were whole but not acknowledged yet\n";
}

}  // namespace
}  // namespace elmworth
