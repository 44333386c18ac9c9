// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/StandardStreams.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace elmworth {
namespace {

/// Whether `check` holds in a process that was started with `closed` closed.
bool holdsWithout(int closed, const std::function<bool()>& check) {
    const pid_t process = ::fork();
    if (process == 0) {
        ::close(closed);
        reserveStandardStreams();
        ::_exit(check() ? 0 : 1);
    }
    int status = 0;
    ::waitpid(process, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

class ClosedStream : public testing::TestWithParam<int> {};

TEST_P(ClosedStream, isGivenToNoFileThatIsOpenedLater) {
    EXPECT_TRUE(holdsWithout(
        GetParam(), [] { return ::open("/dev/null", O_RDWR | O_CLOEXEC) > STDERR_FILENO; }));
}

INSTANTIATE_TEST_SUITE_P(Streams, ClosedStream,
                         testing::Values(STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO));

TEST(StandardStreams, thatAreClosedStillFailInUse) {
    EXPECT_TRUE(holdsWithout(STDOUT_FILENO, [] { return ::write(STDOUT_FILENO, "x", 1) < 0; }));
    EXPECT_TRUE(holdsWithout(STDERR_FILENO, [] { return ::write(STDERR_FILENO, "x", 1) < 0; }));
    EXPECT_TRUE(holdsWithout(STDIN_FILENO, [] {
        char letter = 0;
        return ::read(STDIN_FILENO, &letter, 1) < 0;
    }));
}

TEST(StandardStreams, thatAreOpenStay) {
    EXPECT_TRUE(holdsWithout(STDIN_FILENO, [] {
        return ::fcntl(STDOUT_FILENO, F_GETFD) >= 0 && ::write(STDOUT_FILENO, "", 0) == 0;
    }));
}

}  // namespace
}  // namespace elmworth
