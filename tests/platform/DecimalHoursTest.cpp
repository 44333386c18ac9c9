// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DurationFormat.h"

#include <gtest/gtest.h>

#include <clocale>
#include <locale>
#include <string>

#include "support/Rows.h"

namespace elmworth {
namespace {

using test::rowName;

struct HoursRow {
    const char* name;
    double seconds;
    const char* text;
};

class DecimalHoursRows : public testing::TestWithParam<HoursRow> {};

TEST_P(DecimalHoursRows, hasTwoDecimalsAndAPoint) {
    EXPECT_EQ(formatDecimalHours(GetParam().seconds), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(, DecimalHoursRows,
                         testing::Values(HoursRow{"Nothing", 0, "0.00"},
                                         HoursRow{"SixMinutes", 360, "0.10"},
                                         HoursRow{"AnHourAndAHalf", 5400, "1.50"},
                                         HoursRow{"BelowHalfAHundredth", 17, "0.00"},
                                         // 0.125 and 0.375 are exact: such halves go to even.
                                         HoursRow{"HalfToTheEvenBelow", 450, "0.12"},
                                         HoursRow{"HalfToTheEvenAbove", 1350, "0.38"},
                                         HoursRow{"ManyHours", 3600.0 * 1234567, "1234567.00"},
                                         HoursRow{"Reversed", -1800, "-0.50"}),
                         rowName);

TEST(DecimalHours, theLongestDurationFits) {
    const std::string text = formatDecimalHours(1.7e308);
    EXPECT_EQ(text.size(), 305U + 3U);
    EXPECT_EQ(text.substr(text.size() - 3), ".00");
}

TEST(DecimalHours, noLocaleOfTheProcessPutsAComma) {
    struct Comma final : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
    };
    const std::locale old = std::locale::global(std::locale(std::locale::classic(), new Comma));
    const std::string oldC = std::setlocale(LC_ALL, nullptr);
    for (const char* german : {"de_DE.UTF-8", "de_DE.utf8", "de_DE"})
        if (std::setlocale(LC_ALL, german)) break;  // not every machine has it
    const std::string text = formatDecimalHours(5400);
    std::setlocale(LC_ALL, oldC.c_str());
    std::locale::global(old);
    EXPECT_EQ(text, "1.50");
}

}  // namespace
}  // namespace elmworth
