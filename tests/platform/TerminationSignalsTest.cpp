// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/TerminationSignals.h"

#include <gtest/gtest.h>

#include <QTest>
#include <csignal>

namespace elmworth {
namespace {

TEST(TerminationSignals, endTheProgramFromItsMainLoop) {
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        int asked = 0;
        const TerminationSignals ending([&] { ++asked; });
        ASSERT_EQ(std::raise(number), 0);
        EXPECT_EQ(asked, 0);  // nothing happens in the handler itself
        EXPECT_TRUE(QTest::qWaitFor([&] { return asked > 0; }, 60'000));
        EXPECT_EQ(asked, 1);
    }
}

TEST(TerminationSignals, stayIgnoredWhereTheProgramWasStartedToIgnoreThem) {
    std::signal(SIGHUP, SIG_IGN);
    {
        const TerminationSignals ending([] {});
    }
    EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
}

}  // namespace
}  // namespace elmworth
