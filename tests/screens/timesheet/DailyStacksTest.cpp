// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/DailyStacks.h"

#include <gtest/gtest.h>

#include "support/Instants.h"

namespace elmworth {
namespace {

using test::at;

const std::vector<DateInterval> days{
    {at("2026-03-02T00:00Z"), at("2026-03-03T00:00Z")},
    {at("2026-03-03T00:00Z"), at("2026-03-04T00:00Z")},
    {at("2026-03-04T00:00Z"), at("2026-03-05T00:00Z")},
};

DailyBar bar(std::size_t day, const char* project, double hours, const char* color = "#000000") {
    return {days[day].start, project, color, hours};
}

TEST(DailyStacks, ofNoBarsKeepTheirColumns) {
    const auto stacks = dailyStacks(days, {});
    EXPECT_EQ(stacks.days.size(), 3U);
    EXPECT_TRUE(stacks.bars.empty());
    EXPECT_EQ(stacks.hoursOf(1), 0);
    EXPECT_TRUE(stacks.barsOf(99).empty());
    EXPECT_EQ(stacks.hourMarks.back().hours, 1);
}

TEST(DailyStacks, standOnEachOtherInTheOrderOfTheLabels) {
    const auto stacks =
        dailyStacks(days, std::vector{bar(0, "App", 1), bar(2, "App", 2), bar(0, "Web", 3)});
    ASSERT_EQ(stacks.bars.size(), 3U);
    const auto monday = stacks.barsOf(0);
    ASSERT_EQ(monday.size(), 2U);
    EXPECT_EQ(monday[0].series, 0U);
    EXPECT_EQ(monday[0].bottom, 0);
    EXPECT_EQ(monday[0].top, 1);
    EXPECT_EQ(monday[1].series, 1U);
    EXPECT_EQ(monday[1].bottom, 1);
    EXPECT_EQ(monday[1].top, 4);
    EXPECT_TRUE(stacks.barsOf(1).empty());
    EXPECT_EQ(stacks.hoursOf(2), 2);
    EXPECT_EQ(stacks.hourMarks.back().hours, 4);
}

TEST(DailyStacks, takeTheFirstColorOfALabelForAllItsBars) {
    const auto stacks =
        dailyStacks(days, std::vector{bar(0, "Web", 1, "#FF0000"), bar(1, "Web", 1, "#00FF00")});
    EXPECT_EQ(stacks.series, (std::vector<DailySeries>{{"Web", "#FF0000"}}));
    EXPECT_EQ(stacks.bars[0].series, stacks.bars[1].series);
}

}  // namespace
}  // namespace elmworth
