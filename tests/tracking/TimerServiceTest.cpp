// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimerService.h"

#include <gtest/gtest.h>

#include "support/FailingReads.h"
#include "support/LibraryTest.h"

namespace elmworth {
namespace {

using test::TestTimer;
using Spans = std::vector<std::string>;

class TimerServiceTest : public test::LibraryTest {
 protected:
    TimerServiceTest() {
        acme = timer.library.addClient("Acme");
        website = timer.library.addProject("Website", acme);
        app = timer.library.addProject("App", acme);
        context().save();
    }
    [[nodiscard]] bool hasUnsavedChanges() { return context().hasChanges(); }

    Ref<Client> acme;
    Ref<Project> website, app;
};

// --- start, switch, stop -------------------------------------------------------------------------

TEST_F(TimerServiceTest, isIdleAtFirst) {
    EXPECT_FALSE(service().running());
    EXPECT_EQ(service().elapsedText(), "");
    EXPECT_EQ(service().elapsedLongText(), "");
    EXPECT_EQ(timer.library.runLoop.repeatingCount(), 0U);
}

TEST_F(TimerServiceTest, startMakesAnOpenEntryAndSavesIt) {
    service().start(website);
    ASSERT_TRUE(service().running());
    EXPECT_EQ(service().running()->project.get(), website);
    EXPECT_EQ(service().running()->notes.get(), "");
    EXPECT_FALSE(hasUnsavedChanges());
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-"});
    EXPECT_EQ(service().elapsedText(), "0:00");
    EXPECT_EQ(service().elapsedLongText(), "0:00:00");
}

TEST_F(TimerServiceTest, stopEndsTheEntryNowAndSavesIt) {
    service().start(website);
    timer.setTime("10:30");
    service().stop();
    EXPECT_FALSE(service().running());
    EXPECT_FALSE(hasUnsavedChanges());
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-10:30:00"});
    EXPECT_EQ(service().elapsedText(), "");
    EXPECT_EQ(service().elapsedLongText(), "");
}

TEST_F(TimerServiceTest, stopWithoutATimerStillSavesWhatIsPending) {
    acme->name = "Globex";
    service().stop();
    EXPECT_FALSE(hasUnsavedChanges());
}

TEST_F(TimerServiceTest, switchingLeavesNoGapAlsoWhenTheClockRunsOn) {
    TimerService running(
        context(), [this] { return timer.now += std::chrono::seconds(5); }, timer.library.runLoop,
        [this] { return timer.calendar; });
    running.start(website);
    running.start(app);
    const auto entries = context().fetch<TimeEntry>();
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0]->end.get(), entries[1]->start.get());
    EXPECT_EQ(entries[1]->project.get(), app);
    EXPECT_FALSE(hasUnsavedChanges());
}

TEST_F(TimerServiceTest, aSwitchWithinTheSameSecondLeavesNoTraceOfTheFirst) {
    service().start(website);
    timer.now += std::chrono::milliseconds(999);
    service().start(app);
    const auto entries = context().fetch<TimeEntry>();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0]->project.get(), app);
}

TEST_F(TimerServiceTest, aStopAfterAWholeSecondKeepsTheEntry) {
    service().start(website);
    timer.setTime("09:00:01");
    service().stop();
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-09:00:01"});
}

TEST_F(TimerServiceTest, aStopWithinASecondLeavesNoTrace) {
    service().start(website);
    timer.now += std::chrono::microseconds(999'999);
    service().stop();
    EXPECT_TRUE(timer.spans().empty());
    timer.restart();
    EXPECT_TRUE(timer.spans().empty());
}

TEST_F(TimerServiceTest, aClockThatWasSetBackDeletesTheEntryLikeAShortOne) {
    service().start(website);
    timer.setTime("08:00");
    service().stop();
    EXPECT_TRUE(timer.spans().empty());
}

TEST_F(TimerServiceTest, stopAtEndsTheEntryThere) {
    service().start(website);
    timer.setTime("20:00");
    service().stop(TestTimer::today("12:00"));
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-12:00:00"});
    EXPECT_FALSE(service().running());
    EXPECT_FALSE(hasUnsavedChanges());
    EXPECT_EQ(service().elapsedText(), "");
    EXPECT_EQ(timer.library.runLoop.repeatingCount(), 0U);
}

TEST_F(TimerServiceTest, stopAtAnInstantBeforeTheStartKeepsOneSecond) {
    service().start(website);
    service().stop(TestTimer::today("08:00"));
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-09:00:01"});
}

TEST_F(TimerServiceTest, stopAtWithoutATimerDoesNothing) {
    service().stop(TestTimer::today("08:00"));
    EXPECT_TRUE(timer.spans().empty());
}

// --- continue ------------------------------------------------------------------------------------

TEST_F(TimerServiceTest, continueTakesTheProjectAndTheNotes) {
    const auto earlier =
        timer.library.addEntry(website, TestTimer::today("07:00"), TestTimer::today("08:00"));
    earlier->notes = "Landing page";
    service().start(app);
    timer.setTime("10:00");
    const auto entry = service().continueEntry(earlier);
    ASSERT_TRUE(entry);
    EXPECT_EQ(service().running(), entry);
    EXPECT_NE(entry, earlier);
    EXPECT_EQ(entry->project.get(), website);
    EXPECT_EQ(entry->notes.get(), "Landing page");
    EXPECT_EQ(timer.spans(), (Spans{"07:00:00-08:00:00", "09:00:00-10:00:00", "10:00:00-"}));
    EXPECT_FALSE(hasUnsavedChanges());
    timer.restart();
    EXPECT_EQ(service().running()->notes.get(), "Landing page");
}

TEST_F(TimerServiceTest, continueOfAnEntryWithoutProjectDoesNothing) {
    const auto earlier =
        timer.library.addEntry(nullptr, TestTimer::today("07:00"), TestTimer::today("08:00"));
    service().start(app);
    EXPECT_FALSE(service().continueEntry(earlier));
    EXPECT_EQ(service().running()->project.get(), app);
}

TEST_F(TimerServiceTest, continueWorksForAnArchivedProject) {
    website->isArchived = true;
    const auto earlier =
        timer.library.addEntry(website, TestTimer::today("07:00"), TestTimer::today("08:00"));
    EXPECT_TRUE(service().continueEntry(earlier));
}

TEST_F(TimerServiceTest, continueOfTheRunningEntryGoesOnWithItsNotes) {
    service().start(website);
    service().running()->notes = "Landing page";
    service().continueEntry(service().running());
    EXPECT_EQ(service().running()->notes.get(), "Landing page");
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-"});
}

// --- restore -------------------------------------------------------------------------------------

TEST_F(TimerServiceTest, restoreTakesUpTheTimerOfTheLastRun) {
    service().start(website);
    timer.setTime("11:15");
    timer.restart();
    ASSERT_TRUE(service().running());
    EXPECT_EQ(service().running()->start.get(), TestTimer::today("09:00"));
    EXPECT_EQ(service().elapsedText(), "2:15");
    EXPECT_EQ(timer.library.runLoop.repeatingCount(), 1U);
}

TEST_F(TimerServiceTest, restoreWithoutAnOpenEntryIsIdle) {
    timer.restart();
    EXPECT_FALSE(service().running());
    EXPECT_EQ(timer.library.runLoop.repeatingCount(), 0U);
}

TEST_F(TimerServiceTest, restoreLetsTheNewestOfSeveralOpenEntriesRunOn) {
    timer.library.addEntry(app, TestTimer::today("10:00"), std::nullopt);
    timer.library.addEntry(website, TestTimer::today("09:00"), std::nullopt);
    timer.library.addEntry(website, TestTimer::today("08:00"), std::nullopt);
    context().save();
    timer.setTime("12:00");
    timer.restart();
    EXPECT_EQ(service().running()->project->name.get(), "App");
    EXPECT_FALSE(hasUnsavedChanges());
    timer.restart();
    EXPECT_EQ(timer.spans(), (Spans{"08:00:00-08:00:01", "09:00:00-09:00:01", "10:00:00-"}));
}

// --- refresh -------------------------------------------------------------------------------------

TEST_F(TimerServiceTest, refreshGoesOnWithARunningEntry) {
    service().start(website);
    timer.setTime("10:00");
    service().refresh();
    EXPECT_TRUE(service().running());
    EXPECT_EQ(service().elapsedText(), "1:00");
    EXPECT_EQ(timer.library.runLoop.repeatingCount(), 1U);
}

struct OutsideChange {
    const char* name;
    void (*perform)(UnitOfWork&, const Ref<TimeEntry>&);
};
class RefreshAfter : public TimerServiceTest, public testing::WithParamInterface<OutsideChange> {};

TEST_P(RefreshAfter, stopsTheTickerAndClearsTheTexts) {
    service().start(website);
    timer.setTime("10:00");
    GetParam().perform(context(), service().running());
    service().refresh();
    EXPECT_FALSE(service().running());
    EXPECT_EQ(service().elapsedText(), "");
    EXPECT_EQ(service().elapsedLongText(), "");
    EXPECT_EQ(timer.library.runLoop.repeatingCount(), 0U);
}

INSTANTIATE_TEST_SUITE_P(
    Changes, RefreshAfter,
    testing::Values(OutsideChange{"anEndInTheEditor",
                                  [](UnitOfWork& context, const Ref<TimeEntry>& entry) {
                                      entry->end = TestTimer::today("09:30");
                                      context.save();
                                  }},
                    OutsideChange{"aDeletionThatIsNotSaved",
                                  [](UnitOfWork& context, const Ref<TimeEntry>& entry) {
                                      context.deleteRecord(entry);
                                  }},
                    OutsideChange{"aDeletionOfTheProject",
                                  [](UnitOfWork& context, const Ref<TimeEntry>& entry) {
                                      context.deleteRecord(entry->project.get());
                                      context.save();
                                  }},
                    OutsideChange{"aDeletionOfTheClient",
                                  [](UnitOfWork& context, const Ref<TimeEntry>& entry) {
                                      context.deleteRecord(entry->project->client.get());
                                      context.save();
                                  }}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(TimerServiceTest, refreshGivesUpAnEntryThatWasRolledBack) {
    timer.library.addInvoice("1", acme);
    context().save();
    timer.library.addInvoice("1", acme);  // keeps the next save from succeeding
    service().start(website);
    EXPECT_TRUE(hasUnsavedChanges());
    context().rollback();
    service().refresh();
    EXPECT_FALSE(service().running());
}

TEST_F(TimerServiceTest, stoppingADeletedEntryLeavesItDeleted) {
    service().start(website);
    timer.setTime("10:00");
    context().deleteRecord(service().running());
    service().stop();
    EXPECT_TRUE(timer.spans().empty());
    EXPECT_FALSE(service().running());
}

// --- a library that can't be read at the start
// ----------------------------------------------------

/// An entry runs since nine, and the start at ten doesn't find it.
class UnreadTimerTest : public testing::Test {
 protected:
    UnreadTimerTest() {
        website = timer.library.addProject("Website", timer.library.addClient("Acme"));
        timer.service->start(website);
        timer.setTime("10:00");
        timer.service->stop();
        timer.library.context().fetch<TimeEntry>().front()->end = std::nullopt;
        timer.library.context().save();
        test::FailingReads::fail();
        timer.service->restore();
        test::FailingReads::heal();
        EXPECT_FALSE(timer.service->running());
    }

    const test::FailingReads reads;
    TestTimer timer;
    Ref<Project> website;
};

TEST_F(UnreadTimerTest, anEntryThatCouldNotBeReadIsStopped) {
    timer.service->stop();
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-10:00:00"});
}

TEST_F(UnreadTimerTest, anEntryThatCouldNotBeReadIsStoppedAtAGivenTime) {
    timer.service->stop(TestTimer::today("09:30"));
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-09:30:00"});
}

TEST_F(UnreadTimerTest, anEntryThatCouldNotBeReadEndsWhereTheNextBegins) {
    timer.service->start(website);
    EXPECT_EQ(timer.spans(), (Spans{"09:00:00-10:00:00", "10:00:00-"}));
}

TEST_F(UnreadTimerTest, whatCouldNotBeReadIsResumedOnce) {
    timer.service->restoreUnread();
    ASSERT_TRUE(timer.service->running());
    EXPECT_EQ(timer.service->elapsedText(), "1:00");
    timer.library.addEntry(website, TestTimer::today("09:30"), std::nullopt);
    timer.library.context().save();
    timer.service->restoreUnread();
    EXPECT_EQ(timer.spans(), (Spans{"09:00:00-", "09:30:00-"}));
}

}  // namespace
}  // namespace elmworth
