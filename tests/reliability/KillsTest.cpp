// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A process that is killed at any moment of a work leaves each step of it whole or undone, and what
// it acknowledged is there. ELMWORTH_KILLS says how many are killed in each work.

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <random>

#include "reliability/Works.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using test::Home;
using test::Work;
using Time = std::chrono::steady_clock;

int killCount() {
    const char* text = std::getenv("ELMWORTH_KILLS");
    return text != nullptr ? std::atoi(text) : 10;
}

/// A process that gets ready for a work, does it when it is told, and waits to be killed.
class WorkingProcess {
 public:
    WorkingProcess(const Work& work, const Home& home) {
        if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends_) != 0) throw std::runtime_error("no pair");
        process_ = ::fork();
        if (process_ == 0) run(work, home);
        ::close(ends_[1]);
        if (announced(1, Time::now() + 60s) != 1) throw std::runtime_error("not ready");
    }
    WorkingProcess(const WorkingProcess&) = delete;
    WorkingProcess& operator=(const WorkingProcess&) = delete;
    ~WorkingProcess() {
        kill();
        ::close(ends_[0]);
    }

    void begin() const {
        if (::write(ends_[0], "b", 1) != 1) throw std::runtime_error("gone");
    }
    /// Counts what it announces, "ready" included, until that is `count`, `end` comes, or it ends
    /// itself.
    std::size_t announced(std::size_t count, Time::time_point end) {
        for (auto left = end - Time::now(); announced_ < count && left > 0s;
             left = end - Time::now()) {
            pollfd waiting{ends_[0], POLLIN, 0};
            const auto seconds = std::chrono::floor<std::chrono::seconds>(left);
            const timespec timeout{seconds.count(),
                                   std::chrono::nanoseconds(left - seconds).count()};
            char letter = 0;
            if (::ppoll(&waiting, 1, &timeout, nullptr) == 0) continue;
            if (::read(ends_[0], &letter, 1) != 1) break;
            ++announced_;
        }
        return announced_;
    }
    /// False when it had ended by itself.
    bool kill() {
        if (process_ < 0) return false;
        ::kill(process_, SIGKILL);
        int status = 0;
        ::waitpid(std::exchange(process_, -1), &status, 0);
        return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    }

 private:
    [[noreturn]] void run(const Work& work, const Home& home) const {
        ::close(ends_[0]);
        const auto refusal = home.perform(work, [&](std::string_view word) {
            char letter = word.front();
            if (::write(ends_[1], &letter, 1) != 1) ::_exit(1);
            if (word == "ready" && ::read(ends_[1], &letter, 1) != 1) ::_exit(1);
        });
        if (!refusal.empty()) ::_exit(1);
        while (true) ::pause();
    }

    int ends_[2] = {-1, -1};
    pid_t process_ = -1;
    std::size_t announced_ = 0;
};

class Kills : public testing::TestWithParam<Work> {
 protected:
    void SetUp() override {
        Home(prepared(), GetParam().rows).prepare(GetParam());
        makeStates();
        calibrate();
    }

    [[nodiscard]] fs::path prepared() const { return folder_.path() / "prepared"; }
    /// The home as it was before the work.
    [[nodiscard]] Home again() const {
        fs::remove_all(folder_.path() / "home");
        fs::copy(prepared(), folder_.path() / "home", fs::copy_options::recursive);
        return {folder_.path() / "home", GetParam().rows};
    }
    /// How many announcements a whole work makes.
    [[nodiscard]] std::size_t wholeCount() const {
        return 1 + std::max<std::size_t>(GetParam().steps.size(), 1);
    }

    void killOnce(Time::duration delay) {
        const Home home = again();
        WorkingProcess process(GetParam(), home);
        process.begin();
        process.announced(wholeCount() + 1, Time::now() + delay);
        ASSERT_TRUE(process.kill());
        // What it said just before its end is there to be read.
        const auto acknowledged = process.announced(wholeCount() + 1, Time::now() + 60s) - 1;
        const auto state = std::find(states_.begin() + static_cast<std::ptrdiff_t>(acknowledged),
                                     states_.end(), home.found());
        ASSERT_NE(state, states_.end()) << home.found();
        const auto done = static_cast<std::size_t>(state - states_.begin());
        EXPECT_LE(done, acknowledged + 1);
        if (acknowledged + 1 == wholeCount())
            ++finished_;
        else
            ++(done > acknowledged ? unacknowledged_ : undone_);
    }

    test::TemporaryFolder folder_;
    std::vector<std::string> states_;  ///< after none of the steps, the first, and so on
    Time::duration duration_{};
    int undone_ = 0;
    int unacknowledged_ = 0;
    int finished_ = 0;

 private:
    void makeStates() {
        states_.push_back(again().found());
        Work part = GetParam();
        for (std::size_t count = 1; count <= GetParam().steps.size(); ++count) {
            part.steps.assign(GetParam().steps.begin(),
                              GetParam().steps.begin() + static_cast<std::ptrdiff_t>(count));
            const Home home = again();
            ASSERT_EQ(home.perform(part, [](std::string_view) {}), "");
            states_.push_back(home.found());
            ASSERT_NE(states_.back(), states_[count - 1]);
        }
        if (GetParam().opensOlder) states_.push_back(states_.front());
    }
    void calibrate() {
        std::vector<Time::duration> durations(9);
        for (auto& duration : durations) {
            const Home home = again();
            WorkingProcess process(GetParam(), home);
            const auto start = Time::now();
            process.begin();
            ASSERT_EQ(process.announced(wholeCount(), start + 60s), wholeCount());
            duration = Time::now() - start;
        }
        // The fastest would end most kills of a busy machine before the work has come far.
        const auto middle = durations.begin() + static_cast<std::ptrdiff_t>(durations.size() / 2);
        std::nth_element(durations.begin(), middle, durations.end());
        duration_ = *middle;
    }
};

TEST_P(Kills, leaveEachStepWholeOrUndone) {
    std::mt19937 random(20260321);
    for (int i = 1; i <= killCount(); ++i) {
        SCOPED_TRACE("kill " + std::to_string(i));
        killOnce(duration_ * static_cast<int>(random() % 1250) / 1000);
        if (HasFatalFailure()) return;
    }
    std::cout << "| " << GetParam().name << " | "
              << std::chrono::duration_cast<std::chrono::microseconds>(duration_).count()
              << " µs | " << killCount() << " | " << undone_ << " | " << unacknowledged_ << " | "
              << finished_ << " |\n";
}

INSTANTIATE_TEST_SUITE_P(Works, Kills, testing::ValuesIn(test::allWorks()), [](const auto& given) {
    std::string name(given.param.name);
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

}  // namespace
}  // namespace elmworth
