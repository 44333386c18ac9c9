// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <algorithm>

#include "screens/panel/PanelModel.h"
#include "support/LibraryTest.h"
#include "support/QtTesting.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::at;
using test::utf8;

// --- today ---------------------------------------------------------------------------------------

class TodayChipTest : public test::LibraryTest {
 protected:
    [[nodiscard]] std::string today() { return utf8(panel.today()->text()); }
    PanelModel panel{services()};
};

TEST_F(TodayChipTest, countsFinishedAndRunningTime) {
    EXPECT_EQ(today(), "0:00");
    const auto website = project("Website");
    entry(website, "07:00", "07:40");
    EXPECT_EQ(today(), "0:40");
    service().start(website);
    passTo("09:19:59");
    EXPECT_EQ(today(), "0:59");
    passTo("09:20");
    EXPECT_EQ(today(), "1:00");
}

TEST_F(TodayChipTest, beginsAgainAtMidnight) {
    service().start(project("Website"));
    timer.setClock("2026-03-02T23:59:59Z");
    timer.library.runLoop.fire();
    EXPECT_EQ(today(), "14:59");
    timer.setClock("2026-03-03T00:00:00Z");
    timer.library.runLoop.fire();
    EXPECT_EQ(today(), "0:00");
    timer.setClock("2026-03-03T00:02:30Z");
    timer.library.runLoop.fire();
    EXPECT_EQ(today(), "0:02");
}

TEST_F(TodayChipTest, followsAClockThatIsSetBack) {
    service().start(project("Website"));
    passTo("11:00");
    panel.refresh();
    EXPECT_EQ(today(), "2:00");
    passTo("10:00");
    EXPECT_EQ(today(), "1:00");
    passTo("08:00");
    EXPECT_EQ(today(), "0:00");
    passTo("09:30");
    EXPECT_EQ(today(), "0:30");
}

TEST_F(TodayChipTest, isRightAgainWhenThePanelIsShownTheNextDay) {
    entry(project("Website"), "07:00", "08:00");
    EXPECT_EQ(today(), "1:00");
    timer.setClock("2026-03-03T09:00:00Z");
    panel.refresh();
    EXPECT_EQ(today(), "0:00");
}

// --- the weekly goal -----------------------------------------------------------------------------

class WeeklyGoalBarTest : public test::LibraryTest {
 protected:
    void addHours(int hours) {
        const auto made =
            timer.library.addEntry(project("Website"), at("2026-03-01T00:00Z"),
                                   at("2026-03-01T00:00Z") + std::chrono::hours(hours));
        context().save();
    }
    PanelModel panel{services()};
    WeeklyGoalBarModel& bar = *panel.weeklyGoal();
};

TEST_F(WeeklyGoalBarTest, isHiddenWithoutAGoal) {
    EXPECT_FALSE(bar.isShown());
    for (const std::int64_t none : {0, -5}) {
        defaults.setInteger("weeklyGoalHours", none);
        EXPECT_FALSE(bar.isShown()) << none;
    }
    defaults.setString("weeklyGoalHours", "many");
    EXPECT_FALSE(bar.isShown());
}

TEST_F(WeeklyGoalBarTest, showsTheShareOfTheGoal) {
    addHours(10);
    defaults.setInteger("weeklyGoalHours", 40);
    EXPECT_TRUE(bar.isShown());
    EXPECT_EQ(utf8(bar.text()), "10:00 of 40h");
    EXPECT_DOUBLE_EQ(bar.ratio(), 0.25);
    EXPECT_FALSE(bar.isReached());
}

TEST_F(WeeklyGoalBarTest, isFullAndNoMoreAbove40HoursOf40) {
    timer.setClock("2026-03-05T09:00Z");
    defaults.setInteger("weeklyGoalHours", 40);
    addHours(50);
    EXPECT_EQ(utf8(bar.text()), "50:00 of 40h");
    EXPECT_DOUBLE_EQ(bar.ratio(), 1);
    EXPECT_TRUE(bar.isReached());
}

TEST_F(WeeklyGoalBarTest, isReachedToTheSecond) {
    defaults.setInteger("weeklyGoalHours", 1);
    service().start(project("Website"));
    passTo("09:59:59");
    EXPECT_FALSE(bar.isReached());
    passTo("10:00:00");
    EXPECT_TRUE(bar.isReached());
}

TEST_F(WeeklyGoalBarTest, followsTheSettingLive) {
    addHours(10);
    defaults.setInteger("weeklyGoalHours", 40);
    defaults.setInteger("weeklyGoalHours", 20);
    EXPECT_EQ(utf8(bar.text()), "10:00 of 20h");
    EXPECT_DOUBLE_EQ(bar.ratio(), 0.5);
    defaults.setInteger("weeklyGoalHours", 0);
    EXPECT_FALSE(bar.isShown());
}

TEST_F(WeeklyGoalBarTest, beginsAgainWithTheWeek) {
    defaults.setInteger("weeklyGoalHours", 40);
    timer.setClock("2026-03-07T23:00Z");  // a Saturday; the week begins on Sunday here
    service().start(project("Website"));
    timer.setClock("2026-03-08T00:30Z");
    timer.library.runLoop.fire();
    EXPECT_EQ(utf8(bar.text()), "0:30 of 40h");
}

// --- the budget ----------------------------------------------------------------------------------

struct Budget {
    const char* name;
    double fraction;
    const char* text;
};
class BudgetText : public testing::TestWithParam<Budget> {};

TEST_P(BudgetText, warnsFromFourFifthsOn) {
    EXPECT_EQ(utf8(BudgetChipModel::textOf(GetParam().fraction)), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Fractions, BudgetText,
                         testing::Values(Budget{"none", 0, ""}, Budget{"just_below", 0.799, ""},
                                         Budget{"four_fifths", 0.8, "80% of budget"},
                                         Budget{"almost_all", 0.999, "99% of budget"},
                                         Budget{"all", 1.0, "Over budget"},
                                         Budget{"more", 12.5, "Over budget"}),
                         test::rowName);

class BudgetChipTest : public test::LibraryTest {
 protected:
    BudgetChipTest() { panel.refresh(); }
    /// How often the library was asked for a sum since the last call.
    [[nodiscard]] static long sums() {
        const auto statements = test::StatementTrace::take();
        return std::count_if(statements.begin(), statements.end(), [](const auto& sql) {
            return sql.find("total(") != std::string::npos;
        });
    }
    /// Starts a timer at 09:00 on a project with a budget of ten hours, of which `used` are used.
    void start(std::chrono::minutes used) {
        const auto website = project("Website");
        website->budgetHours = 10;
        const auto begin = at("2026-02-01T00:00Z");
        timer.library.addEntry(website, begin, begin + used);
        service().start(website);
    }
    PanelModel panel{services()};
    BudgetChipModel& chip = *panel.running()->budget();
};

TEST_F(BudgetChipTest, followsTheRunningEntry) {
    using namespace std::chrono_literals;
    start(7h + 30min);
    EXPECT_FALSE(chip.isShown());
    passTo("09:30:01");
    EXPECT_TRUE(chip.isShown());
    EXPECT_EQ(utf8(chip.text()), "80% of budget");
    passTo("11:29:59");
    EXPECT_EQ(utf8(chip.text()), "99% of budget");
    passTo("11:30:01");
    EXPECT_EQ(utf8(chip.text()), "Over budget");
    service().stop();
    EXPECT_FALSE(chip.isShown());
}

TEST_F(BudgetChipTest, asksOnceHoweverManyChangesThereAre) {
    using namespace std::chrono_literals;
    start(9h);
    EXPECT_EQ(sums(), 1);
    panel.running()->setNotes(QStringLiteral("Draft"));
    panel.running()->saveNotes();
    const auto website = service().running()->project.get();
    service().stop();
    service().start(website);
    turn();
    EXPECT_EQ(utf8(chip.text()), "90% of budget");
    EXPECT_EQ(sums(), 0);
}

TEST_F(BudgetChipTest, asksForNothingWhileThePanelIsClosed) {
    using namespace std::chrono_literals;
    panel.rest();
    start(9h);
    turn();
    EXPECT_FALSE(chip.isShown());
    EXPECT_EQ(sums(), 0);
    panel.refresh();
    EXPECT_EQ(utf8(chip.text()), "90% of budget");
    EXPECT_EQ(sums(), 1);
    panel.rest();
    EXPECT_FALSE(chip.isShown());
}

TEST_F(BudgetChipTest, followsTheBudget) {
    using namespace std::chrono_literals;
    start(9h);
    EXPECT_EQ(utf8(chip.text()), "90% of budget");
    service().running()->project->budgetHours = 20;
    turn();
    EXPECT_FALSE(chip.isShown());
    service().running()->project->budgetHours = std::nullopt;
    turn();
    EXPECT_FALSE(chip.isShown());
}

}  // namespace
}  // namespace elmworth
