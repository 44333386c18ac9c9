// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/MoneySums.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "support/Rows.h"

namespace elmworth {
namespace {

struct SumsRow {
    const char* name;
    std::vector<std::pair<const char*, std::int64_t>> amounts;
    const char* text;
};

class MoneySumsTest : public testing::TestWithParam<SumsRow> {};

TEST_P(MoneySumsTest, areTold) {
    MoneySums sums;
    for (const auto& [code, cents] : GetParam().amounts) sums.add(code, cents);
    EXPECT_EQ(sums.text(Locale("en_US")), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    , MoneySumsTest,
    testing::Values(SumsRow{"Nothing", {}, "—"}, SumsRow{"Zero", {{"USD", 0}}, "$0.00"},
                    SumsRow{"OneCurrency", {{"USD", 120'000}, {"USD", 5}}, "$1,200.05"},
                    SumsRow{"InTheOrderOfTheCodes",
                            {{"USD", 100}, {"EUR", 200}, {"USD", 1}, {"CHF", 300}},
                            "CHF\u00a03.00 · €2.00 · $1.01"},
                    SumsRow{"WithoutDecimals", {{"JPY", 120'000}}, "¥1,200"},
                    SumsRow{"BeyondAnyAmount",
                            {{"USD", std::numeric_limits<std::int64_t>::max()}, {"USD", 1}},
                            "$92,233,720,368,547,758.07"}),
    test::rowName);

}  // namespace
}  // namespace elmworth
