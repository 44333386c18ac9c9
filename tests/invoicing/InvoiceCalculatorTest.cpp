// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceCalculator.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/Instants.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using InvoiceCalculator::calculate;
using InvoiceCalculator::Item;
using InvoiceCalculator::Line;
using test::at;
using test::rowName;
using testing::ElementsAre;

const PersistentID website = PersistentID::make();
const PersistentID app = PersistentID::make();

Item item(double seconds, std::int64_t rateCents, const PersistentID& project = website,
          const std::string& name = "Website", Instant start = at("2026-03-02T09:00Z")) {
    return {{project, rateCents}, name, rateCents, start, seconds, ""};
}

std::vector<std::string> names(const std::vector<Line>& lines) {
    std::vector<std::string> found;
    for (const auto& line : lines) found.push_back(line.projectName);
    return found;
}

std::vector<std::int64_t> rates(const std::vector<Line>& lines) {
    std::vector<std::int64_t> found;
    for (const auto& line : lines) found.push_back(line.rateCents);
    return found;
}

// --- rounding of an entry ----------------------------------------------------------------------

struct RoundingRow {
    const char* name;
    double seconds;
    double step;
    double rounded;
};

class InvoiceCalculatorRounding : public testing::TestWithParam<RoundingRow> {};

TEST_P(InvoiceCalculatorRounding, isToAWholeSecondAndThenUpToAWholeStep) {
    const auto& row = GetParam();
    EXPECT_EQ(InvoiceCalculator::roundedSeconds(row.seconds, row.step), row.rounded);
}

INSTANTIATE_TEST_SUITE_P(
    , InvoiceCalculatorRounding,
    testing::Values(RoundingRow{"Nothing", 0, 60, 0}, RoundingRow{"BelowHalfASecond", 0.4, 360, 0},
                    RoundingRow{"JustBelowHalfASecond", 0.499999, 360, 0},
                    RoundingRow{"HalfASecond", 0.5, 360, 360}, RoundingRow{"OneSecond", 1, 60, 60},
                    RoundingRow{"BelowTwoMinutesAndAHalfSecond", 120.4, 60, 120},
                    RoundingRow{"TwoMinutesAndAHalfSecond", 120.5, 60, 180},
                    RoundingRow{"AWholeStepStays", 900, 900, 900},
                    RoundingRow{"ASecondOverAStep", 901, 900, 1800},
                    RoundingRow{"TwentyMinutes", 1210, 900, 1800},
                    RoundingRow{"Reversed", -1, 60, 0},
                    RoundingRow{"ReversedByADay", -86400, 900, 0}),
    rowName);

// --- amount of a line --------------------------------------------------------------------------

struct AmountRow {
    const char* name;
    double seconds;
    std::int64_t rateCents;
    std::int64_t cents;
};

class InvoiceCalculatorAmount : public testing::TestWithParam<AmountRow> {};

TEST_P(InvoiceCalculatorAmount, isHoursTimesRateRoundedOnce) {
    const auto& row = GetParam();
    EXPECT_EQ(InvoiceCalculator::amountCents(row.seconds, row.rateCents), row.cents);
}

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr auto largestRate = std::numeric_limits<std::int64_t>::max();
constexpr auto smallestRate = std::numeric_limits<std::int64_t>::min();

INSTANTIATE_TEST_SUITE_P(
    , InvoiceCalculatorAmount,
    testing::Values(AmountRow{"NoTime", 0, 10000, 0}, AmountRow{"NoRate", 3600, 0, 0},
                    AmountRow{"AnHour", 3600, 9500, 9500},
                    AmountRow{"ThreeQuarters", 2700, 9000, 6750},
                    AmountRow{"BelowHalfACent", 60, 29, 0}, AmountRow{"HalfACent", 60, 30, 1},
                    AmountRow{"HalfACentOwed", 60, -30, -1},
                    // Hours come first, in double precision: 11/60 of 150 falls just below 27.5.
                    AmountRow{"ATieInDoublePrecision", 660, 150, 27},
                    AmountRow{"TheUpperBound", 3600, 9'000'000'000'000'000, 9'000'000'000'000'000},
                    AmountRow{"AboveTheUpperBound", 3600, largestRate, 9'000'000'000'000'000},
                    AmountRow{"BelowTheLowerBound", 3600, smallestRate, -9'000'000'000'000'000},
                    AmountRow{"EndlessTime", infinity, 10000, 0},
                    AmountRow{"NoNumber", std::numeric_limits<double>::quiet_NaN(), 10000, 0}),
    rowName);

// --- tax ---------------------------------------------------------------------------------------

struct TaxRow {
    const char* name;
    std::int64_t subtotalCents;
    std::int64_t basisPoints;
    std::int64_t taxCents;
};

class InvoiceCalculatorTax : public testing::TestWithParam<TaxRow> {};

TEST_P(InvoiceCalculatorTax, isComputedOnceOnTheSubtotalAndHalvesGoUp) {
    const auto& row = GetParam();
    const auto totals = calculate({item(3600, row.subtotalCents)}, 1, row.basisPoints);
    EXPECT_EQ(totals.subtotalCents, row.subtotalCents);
    EXPECT_EQ(totals.taxCents, row.taxCents);
    EXPECT_EQ(totals.totalCents, row.subtotalCents + row.taxCents);
}

INSTANTIATE_TEST_SUITE_P(
    , InvoiceCalculatorTax,
    testing::Values(TaxRow{"NoTax", 12345, 0, 0}, TaxRow{"All", 777, 10000, 777},
                    TaxRow{"HalfOfACent", 1, 5000, 1}, TaxRow{"BelowHalfOfACent", 1, 4999, 0},
                    TaxRow{"EightAndAQuarterPercent", 6750, 825, 557},
                    TaxRow{"OneBasisPoint", 5000, 1, 1},
                    // Division truncates toward zero, so halves go up here too.
                    TaxRow{"OfASubtotalBelowZero", -150, 5000, -74}),
    rowName);

TEST(InvoiceCalculator, taxIsNotRoundedPerLine) {
    const auto totals = calculate({item(3600, 1), item(3600, 1, app, "App")}, 1, 4000);
    EXPECT_EQ(totals.taxCents, 1) << "40% of one cent, twice, would be 0";
}

// --- invoices ----------------------------------------------------------------------------------

TEST(InvoiceCalculator, noItemsMakeNoLinesAndNoMoney) {
    EXPECT_EQ(calculate({}, 6, 825), InvoiceCalculator::Totals{});
}

TEST(InvoiceCalculator, twoEntriesInQuarterHoursWithTax) {
    const auto totals = calculate({item(20 * 60 + 10, 9000), item(60, 9000)}, 15, 825);
    ASSERT_EQ(totals.lines.size(), 1U);
    EXPECT_EQ(totals.lines[0].entries[0].seconds, 1800);
    EXPECT_EQ(totals.lines[0].entries[1].seconds, 900);
    EXPECT_EQ(totals.lines[0].seconds, 2700);
    EXPECT_EQ(totals.lines[0].amountCents, 6750);
    EXPECT_EQ(totals.taxCents, 557);
    EXPECT_EQ(totals.totalCents, 7307);
}

TEST(InvoiceCalculator, anEntryBelowHalfASecondStaysInItsLine) {
    const auto totals = calculate({item(0.4, 9000)}, 6, 0);
    ASSERT_EQ(totals.lines.size(), 1U);
    ASSERT_EQ(totals.lines[0].entries.size(), 1U);
    EXPECT_EQ(totals.lines[0].entries[0].seconds, 0);
    EXPECT_EQ(totals.totalCents, 0);
}

TEST(InvoiceCalculator, aRoundingBelowOneMinuteIsOneMinute) {
    const std::vector items{item(61, 9000), item(0.6, 9000)};
    const auto expected = calculate(items, 1, 825);
    EXPECT_EQ(expected.lines[0].seconds, 180);
    for (const std::int64_t minutes : {std::int64_t{0}, std::int64_t{-5}, smallestRate})
        EXPECT_EQ(calculate(items, minutes, 825), expected) << minutes;
}

TEST(InvoiceCalculator, twoRatesOfAProjectAreTwoLinesTheCheaperFirst) {
    const auto totals = calculate({item(3600, 12000), item(3600, 10000), item(3600, 12000)}, 6, 0);
    EXPECT_THAT(names(totals.lines), ElementsAre("Website", "Website"));
    EXPECT_THAT(rates(totals.lines), ElementsAre(10000, 12000));
    EXPECT_EQ(totals.lines[1].entries.size(), 2U);
}

TEST(InvoiceCalculator, twoProjectsOfOneNameAndRateStayTwoLinesTheEarlierFirst) {
    const auto late = item(3600, 9000, app, "Website", at("2026-03-03T09:00Z"));
    const auto early = item(7200, 9000, website, "Website", at("2026-03-02T09:00Z"));
    const auto totals = calculate({late, early}, 6, 0);
    ASSERT_EQ(totals.lines.size(), 2U);
    EXPECT_EQ(totals.lines[0].seconds, 7200);
    EXPECT_EQ(totals.lines[1].seconds, 3600);
}

TEST(InvoiceCalculator, aRateOfNothingGivesALineWithHoursAndNoAmount) {
    const auto totals = calculate({item(5400, 0)}, 6, 1900);
    ASSERT_EQ(totals.lines.size(), 1U);
    EXPECT_EQ(totals.lines[0].seconds, 5400);
    EXPECT_EQ(totals.lines[0].amountCents, 0);
    EXPECT_EQ(totals.totalCents, 0);
}

TEST(InvoiceCalculator, linesStandInTheNaturalOrderOfTheirNames) {
    std::vector<Item> items;
    for (const char* name : {"Phase 10", "éclair", "Phase 2", "phase 1", "Zoo", "Eclair 2"})
        items.push_back(item(60, 100, PersistentID::make(), name));
    EXPECT_THAT(names(calculate(items, 1, 0).lines),
                ElementsAre("éclair", "Eclair 2", "phase 1", "Phase 2", "Phase 10", "Zoo"));
}

TEST(InvoiceCalculator, aProjectThatWasRenamedBetweenEntriesIsOneLineByItsEarliestName) {
    const auto early = item(60, 9000, website, "Old", at("2026-03-02T09:00Z"));
    const auto late = item(60, 9000, website, "New", at("2026-03-03T09:00Z"));
    EXPECT_THAT(names(calculate({late, early}, 1, 0).lines), ElementsAre("Old"));
}

TEST(InvoiceCalculator, entriesOfOneStartKeepTheirOrder) {
    auto first = item(60, 9000);
    first.notes = "first";
    auto second = item(60, 9000);
    second.notes = "second";
    const auto totals = calculate({first, second}, 1, 0);
    EXPECT_EQ(totals.lines[0].entries[0].notes, "first");
    EXPECT_EQ(totals.lines[0].entries[1].notes, "second");
}

TEST(InvoiceCalculator, theSubtotalIsTheSumOfRoundedAmounts) {
    const auto totals = calculate({item(60, 30), item(60, 30, app, "App")}, 1, 0);
    EXPECT_EQ(totals.subtotalCents, 2) << "half a cent twice, each rounded up";
}

TEST(InvoiceCalculator, entriesOfALineAreNotPricedOneByOne) {
    EXPECT_EQ(calculate({item(60, 30), item(60, 30)}, 1, 0).subtotalCents, 1);
}

// --- sums that do not fit ----------------------------------------------------------------------

std::string errorOf(const std::vector<Item>& items, std::int64_t rounding, std::int64_t tax) {
    try {
        (void)calculate(items, rounding, tax);
        return {};
    } catch (const FiguresError& error) {
        return error.what();
    }
}

constexpr const char* tooLarge = "The figures of this invoice are too large.";

TEST(InvoiceCalculator, aSubtotalBeyond64BitsIsAnError) {
    std::vector<Item> items;
    for (int i = 0; i < 1024; ++i) items.push_back(item(3600, largestRate, PersistentID::make()));
    EXPECT_EQ(errorOf(items, 1, 0), "");
    items.push_back(item(3600, largestRate, PersistentID::make()));
    EXPECT_EQ(errorOf(items, 1, 0), tooLarge);
}

TEST(InvoiceCalculator, aTaxBeyond64BitsIsAnError) {
    EXPECT_EQ(errorOf({item(3600, largestRate)}, 1, 10000), tooLarge);
    EXPECT_EQ(errorOf({item(3600, 100)}, 1, std::numeric_limits<std::int64_t>::max()), tooLarge);
    EXPECT_EQ(errorOf({item(3600, 100)}, 1, std::numeric_limits<std::int64_t>::min()), tooLarge);
}

TEST(InvoiceCalculator, aTotalBeyond64BitsIsAnError) {
    std::vector<Item> items;
    for (int i = 0; i < 1000; ++i) items.push_back(item(3600, largestRate, PersistentID::make()));
    EXPECT_EQ(errorOf(items, 1, 1), "");
    EXPECT_EQ(errorOf(items, 1, 10), tooLarge);
}

TEST(InvoiceCalculator, aRoundingBeyond64BitsIsAnError) {
    EXPECT_EQ(errorOf({}, largestRate, 0), tooLarge);
}

TEST(InvoiceCalculator, figuresOverManyClientsStayWithin64Bits) {
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(InvoiceCalculator::limitedSum(2, -3), -1);
    EXPECT_EQ(InvoiceCalculator::limitedSum(most, 1), most);
    EXPECT_EQ(InvoiceCalculator::limitedSum(least, -1), least);
    EXPECT_EQ(InvoiceCalculator::limitedSum(most, least), -1);
}

}  // namespace
}  // namespace elmworth
