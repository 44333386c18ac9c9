// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DurationFormat.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "support/Rows.h"

namespace elmworth {
namespace {

using test::rowName;

struct DurationRow {
    const char* name;
    double seconds;
    const char* hoursMinutes;
    const char* hoursMinutesSeconds;
};

void PrintTo(const DurationRow& row, std::ostream* out) {
    *out << row.name;
}

class Duration : public testing::TestWithParam<DurationRow> {};

TEST_P(Duration, readsAsHoursAndMinutes) {
    EXPECT_EQ(formatHoursMinutes(GetParam().seconds), GetParam().hoursMinutes);
}

TEST_P(Duration, readsAsHoursMinutesAndSeconds) {
    EXPECT_EQ(formatHoursMinutesSeconds(GetParam().seconds), GetParam().hoursMinutesSeconds);
}

constexpr double twoTo63 = 9223372036854775808.0;

INSTANTIATE_TEST_SUITE_P(
    Row, Duration,
    testing::ValuesIn(std::vector<DurationRow>{
        {"Nothing", 0, "0:00", "0:00:00"},
        {"FractionsAreCutOff", 59.999, "0:00", "0:00:59"},
        {"OneMinute", 60, "0:01", "0:01:00"},
        {"OneSecondBelowAnHour", 3599, "0:59", "0:59:59"},
        {"OneHour", 3600, "1:00", "1:00:00"},
        {"TenHours", 36000, "10:00", "10:00:00"},
        {"HoursHaveNoLimit", 1234 * 3600.0 + 5 * 60 + 9, "1234:05", "1234:05:09"},
        {"NegativeIsNothing", -5, "0:00", "0:00:00"},
        {"NegativeFractionIsNothing", -0.5, "0:00", "0:00:00"},
        {"Most", std::nextafter(twoTo63, 0), "2562047788015215:13", "2562047788015215:13:04"},
        {"Least", -twoTo63, "0:00", "0:00:00"},
    }),
    rowName);

struct StopRow {
    const char* name;
    double seconds;
};

void PrintTo(const StopRow& row, std::ostream* out) {
    *out << row.name;
}

class DurationDeathTest : public testing::TestWithParam<StopRow> {};

TEST_P(DurationDeathTest, stopsTheProgram) {
    const double seconds = GetParam().seconds;
    EXPECT_EXIT((void)formatHoursMinutes(seconds), testing::KilledBySignal(SIGABRT), "");
    EXPECT_EXIT((void)formatHoursMinutesSeconds(seconds), testing::KilledBySignal(SIGABRT), "");
}

INSTANTIATE_TEST_SUITE_P(Row, DurationDeathTest,
                         testing::ValuesIn(std::vector<StopRow>{
                             {"NotANumber", std::numeric_limits<double>::quiet_NaN()},
                             {"Infinity", std::numeric_limits<double>::infinity()},
                             {"NegativeInfinity", -std::numeric_limits<double>::infinity()},
                             {"OneTooMany", twoTo63},
                             {"OneTooFew",
                              std::nextafter(-twoTo63, -std::numeric_limits<double>::infinity())},
                         }),
                         rowName);

}  // namespace
}  // namespace elmworth
