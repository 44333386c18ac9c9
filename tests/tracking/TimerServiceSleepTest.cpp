// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include "support/LibraryTest.h"

namespace elmworth {
namespace {

using test::TestTimer;
using Spans = std::vector<std::string>;

/// A timer that runs on "Website" since 09:00.
class TimerServiceSleep : public test::LibraryTest {
 protected:
    TimerServiceSleep() {
        website = timer.library.addProject("Website", nullptr);
        service().start(website);
        service().running()->notes = "Landing page";
    }
    [[nodiscard]] Spans intervals() {
        Spans texts;
        for (const auto& interval : service().awayIntervals())
            texts.push_back(test::iso(interval.start).substr(11, 5) + '-' +
                            test::iso(interval.end).substr(11, 5));
        return texts;
    }

    Ref<Project> website;
};

TEST_F(TimerServiceSleep, shorterThanTenMinutesCountsAsWork) {
    timer.sleep("10:00:00", "10:09:59");
    EXPECT_TRUE(service().awayIntervals().empty());
}

TEST_F(TimerServiceSleep, ofTenMinutesIsNoted) {
    timer.sleep("10:00", "10:10");
    EXPECT_EQ(intervals(), Spans{"10:00-10:10"});
}

TEST_F(TimerServiceSleep, changesNoRecord) {
    context().save();
    timer.sleep("10:00", "12:00");
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-"});
}

TEST_F(TimerServiceSleep, thatBeganBeforeTheEntryIsNotNoted) {
    service().stop();
    timer.setTime("10:00");
    timer.power.sleep();
    timer.setTime("10:30");
    service().start(website);
    timer.setTime("12:00");
    timer.power.wake();
    EXPECT_TRUE(service().awayIntervals().empty());
}

TEST_F(TimerServiceSleep, thatBeganWithTheEntryIsNotNoted) {
    timer.sleep("09:00", "10:00");
    EXPECT_TRUE(service().awayIntervals().empty());
}

TEST_F(TimerServiceSleep, withoutATimerIsNotNoted) {
    service().stop();
    timer.sleep("10:00", "12:00");
    EXPECT_TRUE(service().awayIntervals().empty());
}

TEST_F(TimerServiceSleep, aWakeWithoutASleepIsNotNoted) {
    timer.setTime("12:00");
    timer.power.wake();
    EXPECT_TRUE(service().awayIntervals().empty());
}

TEST_F(TimerServiceSleep, isForgottenAfterItsWake) {
    timer.sleep("10:00", "10:05");
    timer.setTime("12:00");
    timer.power.wake();
    EXPECT_TRUE(service().awayIntervals().empty());
}

TEST_F(TimerServiceSleep, observersAreInstalledOnce) {
    service().installSleepObservers(timer.power);
    EXPECT_EQ(timer.power.wakeObservationCount(), 1U);
    timer.sleep("10:00", "11:00");
    EXPECT_EQ(intervals(), Spans{"10:00-11:00"});
}

TEST_F(TimerServiceSleep, observersEndWithTheService) {
    timer.service.reset();
    timer.power.sleep();
    timer.power.wake();
}

TEST_F(TimerServiceSleep, severalAddUp) {
    timer.sleep("10:00", "11:00");
    timer.sleep("12:00", "13:00");
    EXPECT_EQ(intervals(), (Spans{"10:00-11:00", "12:00-13:00"}));
}

TEST_F(TimerServiceSleep, thatIsKeptStaysInTheEntry) {
    timer.sleep("10:00", "11:00");
    service().keepAwayTime();
    EXPECT_TRUE(service().awayIntervals().empty());
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-"});
}

TEST_F(TimerServiceSleep, thatNobodyDecidedAboutStaysInTheEntryAtAStop) {
    timer.sleep("10:00", "11:00");
    timer.setTime("12:00");
    service().stop();
    EXPECT_TRUE(service().awayIntervals().empty());
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-12:00:00"});
}

TEST_F(TimerServiceSleep, thatNobodyDecidedAboutStaysInTheEntryAtAStopAt) {
    timer.sleep("10:00", "11:00");
    service().stop(TestTimer::today("11:30"));
    EXPECT_TRUE(service().awayIntervals().empty());
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-11:30:00"});
}

TEST_F(TimerServiceSleep, thatNobodyDecidedAboutStaysInTheEntryAtASwitch) {
    timer.sleep("10:00", "11:00");
    timer.setTime("12:00");
    service().start(timer.library.addProject("App", nullptr));
    EXPECT_TRUE(service().awayIntervals().empty());
    EXPECT_EQ(timer.spans(), (Spans{"09:00:00-12:00:00", "12:00:00-"}));
}

TEST_F(TimerServiceSleep, thatNobodyDecidedAboutStaysInTheEntryAtAQuit) {
    context().save();
    timer.sleep("10:00", "11:00");
    timer.restart();
    EXPECT_TRUE(service().awayIntervals().empty());
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-"});
}

// --- discarding ----------------------------------------------------------------------------------

TEST_F(TimerServiceSleep, discardedLeavesAChainOfTheTimeAwake) {
    const auto first = service().running();
    timer.sleep("10:00", "11:00");
    timer.sleep("12:00", "13:00");
    timer.setTime("13:05");
    service().discardAwayTime();
    EXPECT_EQ(timer.spans(), (Spans{"09:00:00-10:00:00", "11:00:00-12:00:00", "13:00:00-"}));
    EXPECT_TRUE(service().awayIntervals().empty());
    EXPECT_EQ(service().running()->start.get(), TestTimer::today("13:00"));
    EXPECT_EQ(service().elapsedText(), "0:05");
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(timer.library.runLoop.repeatingCount(), 1U);
    for (const auto& entry : context().fetch<TimeEntry>()) {
        EXPECT_EQ(entry->project.get(), website);
        EXPECT_EQ(entry->notes.get(), "Landing page");
    }
    EXPECT_EQ(first->start.get(), TestTimer::today("09:00"));
}

TEST_F(TimerServiceSleep, discardedLeavesTheBillingWithTheFirstLink) {
    const auto first = service().running();
    first->billedRateCents = 5000;
    timer.sleep("10:00", "11:00");
    service().discardAwayTime();
    EXPECT_EQ(first->billedRateCents.get(), 5000);
    EXPECT_FALSE(service().running()->billedRateCents.get());
}

struct Sleeps {
    const char* name;
    std::vector<std::pair<const char*, const char*>> sleeps;
    Spans spans;
};
class DiscardedSleeps : public TimerServiceSleep, public testing::WithParamInterface<Sleeps> {};

TEST_P(DiscardedSleeps, leaveTheSpans) {
    for (const auto& [from, to] : GetParam().sleeps) timer.sleep(from, to);
    service().discardAwayTime();
    EXPECT_EQ(timer.spans(), GetParam().spans);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DiscardedSleeps,
    testing::Values(Sleeps{"none", {}, {"09:00:00-"}},
                    Sleeps{"one", {{"10:00", "11:00"}}, {"09:00:00-10:00:00", "11:00:00-"}},
                    Sleeps{"touching",
                           {{"10:00", "11:00"}, {"11:00", "12:00"}},
                           {"09:00:00-10:00:00", "12:00:00-"}},
                    Sleeps{"overlapping",
                           {{"10:00", "11:00"}, {"10:30", "12:00"}},
                           {"09:00:00-10:00:00", "12:00:00-"}},
                    Sleeps{"outOfOrder",
                           {{"12:00", "13:00"}, {"10:00", "11:00"}},
                           {"09:00:00-10:00:00", "11:00:00-12:00:00", "13:00:00-"}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(TimerServiceSleep, discardedRightAfterTheStartLeavesOneSecond) {
    timer.now += std::chrono::milliseconds(500);
    timer.power.sleep();
    timer.setTime("10:00");
    timer.power.wake();
    service().discardAwayTime();
    EXPECT_EQ(timer.spans(), (Spans{"09:00:00-09:00:01", "10:00:00-"}));
}

TEST_F(TimerServiceSleep, discardedWithoutATimerChangesNothing) {
    timer.sleep("10:00", "11:00");
    context().deleteRecord(service().running());
    service().refresh();
    service().discardAwayTime();
    EXPECT_TRUE(timer.spans().empty());
    EXPECT_TRUE(service().awayIntervals().empty());
}

}  // namespace
}  // namespace elmworth
