// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/PanelModel.h"
#include "screens/panel/RunningCardModel.h"
#include "support/LibraryTest.h"
#include "support/QtTesting.h"
#include "support/StatementTrace.h"

namespace elmworth {
namespace {

using test::at;
using test::utf8;
using Spans = std::vector<std::string>;

/// The prompts as they stand in the running card, over a timer on "Website" that began at 09:00.
class PromptTest : public test::LibraryTest {
 protected:
    PromptTest() { service().start(project("Website")); }

    PanelModel panel{services()};
    LongRunningWarningModel& warning = *panel.running()->warning();
    AwayPromptModel& away = *panel.running()->away();
};

using LongRunningWarningTest = PromptTest;

TEST_F(LongRunningWarningTest, showsFromTenHoursOn) {
    passTo("18:59:59");
    EXPECT_FALSE(warning.isShown());
    EXPECT_TRUE(warning.choices().isEmpty());
    passTo("19:00:00");
    EXPECT_TRUE(warning.isShown());
    EXPECT_EQ(utf8(warning.text()), "Running a long time — forgot to stop?");
}

TEST_F(LongRunningWarningTest, offersFourInstantsAfterTheStart) {
    passTo("19:00");
    QStringList expected;
    for (const char* text : {"1 h after start (10:00\u202FAM)", "2 h after start (11:00\u202FAM)",
                             "4 h after start (1:00\u202FPM)", "8 h after start (5:00\u202FPM)"}) {
        expected.append(QString::fromUtf8(text));
    }
    EXPECT_EQ(warning.choices(), expected);
}

TEST_F(LongRunningWarningTest, aChoiceEndsTheEntryThere) {
    passTo("19:00");
    warning.stopAt(2);
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-13:00:00"});
    EXPECT_FALSE(warning.isShown());
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(LongRunningWarningTest, aChoiceThatIsNotThereDoesNothing) {
    warning.stopAt(0);
    passTo("19:00");
    warning.stopAt(-1);
    warning.stopAt(4);
    EXPECT_TRUE(service().running());
}

TEST_F(LongRunningWarningTest, nowStopsTheTimerNow) {
    passTo("19:30");
    warning.stopNow();
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-19:30:00"});
    EXPECT_FALSE(warning.isShown());
}

TEST_F(LongRunningWarningTest, eightHoursAfterTheStartLie18HoursBackInARunOf26) {
    const auto blog = project("Blog");
    timer.library.addEntry(blog, at("2026-03-02T16:00Z"), at("2026-03-02T18:00Z"));
    timer.setClock("2026-03-03T11:00Z");
    panel.refresh();
    warning.stopAt(3);
    EXPECT_EQ(timer.spans(), (Spans{"09:00:00-17:00:00", "16:00:00-18:00:00"}));
}

TEST_F(LongRunningWarningTest, stoppingEarlierTakesTheSleepsAlong) {
    timer.sleep("10:00", "11:00");
    passTo("19:00");
    EXPECT_TRUE(away.isShown());
    warning.stopAt(0);
    EXPECT_FALSE(away.isShown());
    EXPECT_TRUE(service().awayIntervals().empty());
}

TEST_F(LongRunningWarningTest, followsTheEntryThatRuns) {
    passTo("19:00");
    EXPECT_TRUE(warning.isShown());
    service().start(project("Blog"));
    EXPECT_FALSE(warning.isShown());
    EXPECT_TRUE(warning.choices().isEmpty());
}

TEST_F(LongRunningWarningTest, aNewStartOfTheEntryGivesNewChoices) {
    passTo("19:00");
    service().running()->start = test::TestTimer::today("08:30");
    turn();
    EXPECT_EQ(utf8(warning.choices().first()), "1 h after start (9:30\u202FAM)");
}

using AwayPromptTest = PromptTest;

TEST_F(AwayPromptTest, asksAboutAllSleepsTogether) {
    timer.sleep("10:00", "11:30");
    EXPECT_EQ(utf8(away.text()), "Computer slept for 1:30. Keep that time?");
    timer.sleep("12:00", "12:45");
    EXPECT_EQ(utf8(away.text()), "Computer slept for 2:15. Keep that time?");
    EXPECT_EQ(utf8(away.discardHelp()),
              "Remove the sleep time from this entry (first sleep at 10:00\u202FAM)");
}

TEST_F(AwayPromptTest, aSleepOf599SecondsIsNoneAndOneOf600Is) {
    timer.sleep("10:00:00", "10:09:59");
    EXPECT_FALSE(away.isShown());
    EXPECT_TRUE(away.text().isEmpty());
    timer.sleep("11:00", "11:10");
    EXPECT_TRUE(away.isShown());
}

TEST_F(AwayPromptTest, keepingChangesNoRecord) {
    timer.sleep("10:00", "11:00");
    away.keep();
    EXPECT_FALSE(away.isShown());
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-"});
    passTo("11:00:01");
    EXPECT_EQ(utf8(panel.running()->elapsed()), "2:00:01");
}

TEST_F(AwayPromptTest, discardingLeavesTheTimeSinceTheLastWake) {
    timer.sleep("10:00", "11:00");
    passTo("11:05");
    away.discard();
    EXPECT_FALSE(away.isShown());
    EXPECT_EQ(timer.spans(), (Spans{"09:00:00-10:00:00", "11:00:00-"}));
    EXPECT_EQ(utf8(panel.running()->elapsed()), "0:05:00");
}

TEST_F(AwayPromptTest, staysWhileTheEntryRunsAndStoppingKeepsTheTime) {
    timer.sleep("10:00", "11:00");
    passTo("15:00");
    EXPECT_TRUE(away.isShown());
    panel.running()->stop();
    EXPECT_FALSE(away.isShown());
    EXPECT_EQ(timer.spans(), Spans{"09:00:00-15:00:00"});
}

}  // namespace
}  // namespace elmworth
