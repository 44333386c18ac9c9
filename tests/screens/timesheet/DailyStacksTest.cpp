// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/DailyStacks.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/Instants.h"
#include "support/Rows.h"

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
    EXPECT_TRUE(stacks.barsOf(1).empty());
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
    EXPECT_EQ(stacks.barsOf(2).back().top, 2);
    EXPECT_EQ(stacks.hourMarks.back().hours, 4);
}

TEST(DailyStacks, takeTheFirstColorOfALabelForAllItsBars) {
    const auto stacks =
        dailyStacks(days, std::vector{bar(0, "Web", 1, "#FF0000"), bar(1, "Web", 1, "#00FF00")});
    EXPECT_EQ(stacks.series, (std::vector<DailySeries>{{"Web", "#FF0000"}}));
    EXPECT_EQ(stacks.bars[0].series, stacks.bars[1].series);
}

struct AxisRow {
    const char* name;
    double highest;
    const char* labels;
};

void PrintTo(const AxisRow& row, std::ostream* out) {
    *out << row.name;
}

class HourAxis : public testing::TestWithParam<AxisRow> {};

TEST_P(HourAxis, reachesTheHighestColumnInEvenSteps) {
    std::string labels;
    for (const auto& mark : hourMarks(GetParam().highest)) labels += mark.label + ' ';
    EXPECT_EQ(labels, GetParam().labels);
}

INSTANTIATE_TEST_SUITE_P(Row, HourAxis,
                         testing::ValuesIn(std::vector<AxisRow>{
                             {"Nothing", 0, "0h 1h "},
                             {"NotANumber", std::numeric_limits<double>::quiet_NaN(), "0h 1h "},
                             {"Endless", std::numeric_limits<double>::infinity(), "0h 1h "},
                             {"Negative", -3, "0h 1h "},
                             {"Minutes", 0.1, "0h 1h "},
                             {"JustOverAnHour", 1.01, "0h 1h 2h "},
                             {"FiveHours", 5, "0h 1h 2h 3h 4h 5h "},
                             {"AWorkingDay", 8.25, "0h 2h 4h 6h 8h 10h "},
                             {"ALongDay", 14, "0h 4h 8h 12h 16h "},
                             {"AWholeDay", 24, "0h 6h 12h 18h 24h "},
                             {"TheLongestDay", 25, "0h 6h 12h 18h 24h 30h "},
                             {"SeveralAtOnce", 100, "0h 24h 48h 72h 96h 120h "},
                             {"VeryManyAtOnce", 121, "0h 50h 100h 150h "},
                             {"Absurd", 240000, "0h 50000h 100000h 150000h 200000h 250000h "},
                         }),
                         test::rowName);

TEST(HourAxisMarks, areWholeHoursFromZeroUpToOrAboveTheHighest) {
    for (double highest = 0.05; highest < 1e7; highest *= 1.07) {
        const auto marks = hourMarks(highest);
        ASSERT_GE(marks.size(), 2U) << highest;
        ASSERT_LE(marks.size(), 6U) << highest;
        EXPECT_EQ(marks.front().hours, 0);
        EXPECT_GE(marks.back().hours, highest);
        EXPECT_LT(marks[marks.size() - 2].hours, highest);
    }
}

}  // namespace
}  // namespace elmworth
