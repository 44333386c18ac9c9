// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/TerminalProgress.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>

namespace elmworth {
namespace {

void work(TerminalProgress& progress) {
    for (std::size_t done = 1; done <= 100'000; ++done) progress.advance("Reading", done, 100'000);
}

TEST(TerminalProgress, goesOnWithoutATerminal) {
    TerminalProgress progress(-1);
    EXPECT_NO_THROW(work(progress));
}

TEST(TerminalProgress, stopsTheWorkAtTheFirstInterrupt) {
    TerminalProgress progress(-1);
    work(progress);  // only work that reports watches
    std::raise(SIGINT);
    EXPECT_THROW(work(progress), Cancelled);
}

TEST(TerminalProgress, letsTheSecondInterruptEndTheProcess) {
    EXPECT_EXIT(
        {
            TerminalProgress progress(-1);
            work(progress);
            std::raise(SIGINT);
            std::raise(SIGINT);
        },
        testing::KilledBySignal(SIGINT), "");
}

TEST(TerminalProgress, givesInterruptsTheirFormerMeaningBack) {
    EXPECT_EXIT(
        {
            {
                TerminalProgress progress(-1);
                work(progress);
            }
            std::raise(SIGINT);
        },
        testing::KilledBySignal(SIGINT), "");
}

TEST(TerminalProgress, leavesAnInterruptThatIsIgnoredIgnored) {
    EXPECT_EXIT(
        {
            std::signal(SIGINT, SIG_IGN);
            TerminalProgress progress(-1);
            work(progress);
            std::raise(SIGINT);
            work(progress);
            ::_exit(0);
        },
        testing::ExitedWithCode(0), "");
}

TEST(TerminalProgress, stopsWhenTheProcessThatWaitsHasEnded) {
    std::array<int, 2> lifeline{};
    ASSERT_EQ(::pipe(lifeline.data()), 0);
    TerminalProgress progress(-1, lifeline[0]);
    EXPECT_NO_THROW(work(progress));
    ::close(lifeline[1]);
    EXPECT_THROW(work(progress), Cancelled);
    ::close(lifeline[0]);
}

}  // namespace
}  // namespace elmworth
