// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Activation.h"

#include <gtest/gtest.h>

#include "support/TestTimer.h"

namespace elmworth {
namespace {

using test::TestTimer;

class ActivationTest : public testing::Test {
 protected:
    ActivationTest() {
        website = timer.library.addProject("Website", nullptr);
        timer.library.addEntry(website, TestTimer::today("07:00"), TestTimer::today("08:00"));
    }

    TestTimer timer;
    Ref<Project> website;
    std::string shown;
    LongWork work;
    Activation activation{{[this] { shown += "window "; }, [this] { shown += "panel "; },
                           [this] { shown += "sheet "; }},
                          *timer.service,
                          work};
};

TEST_F(ActivationTest, continueStartsTheTimerOnWhatEndedLast) {
    activation.run("continue");
    ASSERT_TRUE(timer.service->running());
    EXPECT_EQ(timer.service->running()->project.get(), website);
    EXPECT_EQ(shown, "");
}

TEST_F(ActivationTest, longWorkLeavesTheTimerAsItIs) {
    work.run([this] { activation.run("continue"); });
    EXPECT_FALSE(timer.service->running());
    EXPECT_EQ(shown, "");
}

TEST_F(ActivationTest, continueShowsWhatRunsAndLeavesItRunning) {
    timer.service->start(timer.library.addProject("App", nullptr));
    const auto running = timer.service->running();
    activation.run("continue");
    EXPECT_EQ(timer.service->running(), running);
    EXPECT_EQ(shown, "panel ");
}

TEST_F(ActivationTest, aNewInvoiceIsASheetAndNoInvoice) {
    activation.run("new-invoice");
    EXPECT_EQ(shown, "sheet ");
    EXPECT_EQ(timer.library.context().fetchCount<Invoice>(), 0U);
}

TEST_F(ActivationTest, anUnknownActionBringsTheWindow) {
    activation.run("fly");
    EXPECT_EQ(shown, "window ");
}

}  // namespace
}  // namespace elmworth
