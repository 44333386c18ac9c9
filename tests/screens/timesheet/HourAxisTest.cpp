// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/HourAxis.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/Rows.h"

namespace elmworth {
namespace {

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
