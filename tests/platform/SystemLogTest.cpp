// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/SystemLog.h"

#include <gtest/gtest.h>
#include <pty.h>
#include <unistd.h>

#include <string>

namespace elmworth {
namespace {

/// Runs `work` with `descriptor` as standard error.
template <typename Work>
void withStandardError(int descriptor, Work work) {
    const int old = ::dup(STDERR_FILENO);
    ::dup2(descriptor, STDERR_FILENO);
    work();
    ::dup2(old, STDERR_FILENO);
    ::close(old);
    ::close(descriptor);
}

std::string readSome(int descriptor) {
    char buffer[256];
    const ssize_t count = ::read(descriptor, buffer, sizeof buffer);
    ::close(descriptor);
    return {buffer, static_cast<std::size_t>(count > 0 ? count : 0)};
}

TEST(SystemLog, aLineGoesToTheTerminalAsItStands) {
    int host = -1;
    int terminal = -1;
    ASSERT_EQ(::openpty(&host, &terminal, nullptr, nullptr, nullptr), 0);
    withStandardError(terminal, [] { writeSystemLog("Elmworth: 100%s saved"); });
    EXPECT_EQ(readSome(host), "Elmworth: 100%s saved\r\n");
}

TEST(SystemLog, standardErrorThatIsNoTerminalStaysEmpty) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    withStandardError(ends[1], [] { writeSystemLog("Elmworth: a line"); });
    EXPECT_EQ(readSome(ends[0]), "");
}

}  // namespace
}  // namespace elmworth
