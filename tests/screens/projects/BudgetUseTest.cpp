// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/projects/BudgetUse.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/Rows.h"

namespace elmworth {
namespace {

using Level = BudgetUse::Level;

struct UseRow {
    const char* name;
    double fraction;
    Level level;
    const char* percent;
};

class BudgetUseTable : public testing::TestWithParam<UseRow> {};

TEST_P(BudgetUseTable, saysHowMuchIsUsed) {
    const BudgetUse use{GetParam().fraction};
    EXPECT_EQ(use.level(), GetParam().level);
    EXPECT_EQ(use.percent().toStdString(), GetParam().percent);
    EXPECT_EQ(use.help().toStdString(), std::string(GetParam().percent) + "% of budget used");
    EXPECT_EQ(use.label().toStdString(),
              std::string(GetParam().percent) + " percent of budget used");
}

INSTANTIATE_TEST_SUITE_P(
    , BudgetUseTable,
    testing::Values(UseRow{"nothing", 0, Level::fine, "0"},
                    UseRow{"nearlyHalfAPercent", 0.0049, Level::fine, "0"},
                    UseRow{"halfAPercentRoundsUp", 0.005, Level::fine, "1"},
                    UseRow{"halves", 0.125, Level::fine, "13"},
                    UseRow{"justBelowFourFifths", std::nextafter(0.8, 0), Level::fine, "80"},
                    UseRow{"fourFifths", 0.8, Level::nearlyUsed, "80"},
                    UseRow{"fourFifthsOfTenHours", 28'800.0 / 36'000, Level::nearlyUsed, "80"},
                    UseRow{"all", 1, Level::nearlyUsed, "100"},
                    UseRow{"hardlyMoreThanAll", 1.0001, Level::exceeded, "100"},
                    UseRow{"aQuarterMore", 1.25, Level::exceeded, "125"},
                    UseRow{"aThousandfold", 1000, Level::exceeded, "100000"},
                    UseRow{"anEndBeforeItsStart", -0.5, Level::fine, "-50"}),
    test::rowName);

TEST(BudgetUse, growsByTheTimeThatIsTracked) {
    EXPECT_EQ((BudgetUse{0.5}.after(3600, 36'000).fraction), 0.6);
    EXPECT_EQ(BudgetUse{0.5}.after(0, 36'000).fraction, 0.5);
}

TEST(BudgetUse, looksTheSameUntilItsBarOrItsWordsChange) {
    EXPECT_TRUE(BudgetUse{0.5}.looksLike({0.5001}));
    EXPECT_FALSE(BudgetUse{0.5}.looksLike({0.502}));
    EXPECT_FALSE(BudgetUse{0.7999999}.looksLike({0.8}));
    EXPECT_FALSE(BudgetUse{1}.looksLike({1.00001}));
}

}  // namespace
}  // namespace elmworth
