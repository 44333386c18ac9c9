// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/MoneyFormat.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <vector>

#include "platform/CurrencyFormatter.h"
#include "support/Rows.h"
#include "support/ScopedEnvironment.h"

namespace elmworth {
namespace {

using test::rowName;

constexpr auto most = std::numeric_limits<std::int64_t>::max();
constexpr auto least = std::numeric_limits<std::int64_t>::min();
constexpr auto absent = std::nullopt;

struct FormatRow {
    const char* name;
    std::int64_t cents;
    const char* code;
    const char* locale;
    const char* text;
};

void PrintTo(const FormatRow& row, std::ostream* out) {
    *out << row.name;
}

class FormatCents : public testing::TestWithParam<FormatRow> {};

TEST_P(FormatCents, isTheLocalesForm) {
    const auto& row = GetParam();
    EXPECT_EQ(formatCents(row.cents, row.code, Locale(row.locale)), row.text);
}

INSTANTIATE_TEST_SUITE_P(Row, FormatCents,
                         testing::ValuesIn(std::vector<FormatRow>{
                             {"OneCent", 1, "USD", "en_US", "$0.01"},
                             {"OneCentInGerman", 1, "EUR", "de_DE", "0,01\u00a0€"},
                             {"WholeDollarsKeepBothDecimals", 1200, "USD", "en_US", "$12.00"},
                             {"Negative", -1205, "USD", "en_US", "-$12.05"},
                             {"ACurrencyWithoutPartsIsStillHundredths", 123400, "JPY", "en_US",
                              "¥1,234"},
                             {"Largest", most, "USD", "en_US", "$92,233,720,368,547,758.07"},
                             {"WithoutACodeTheValueStandsPlain", 1250, "", "en_US", " 12.5"},
                             {"AStrangeCodeStandsBeforeThePlainValue", 1200, "X", "de_DE", "X 12"},
                             {"PlainCents", 1205, "X", "de_DE", "X 12.05"},
                             {"PlainNegative", -1205, "X", "en_US", "X -12.05"},
                             {"PlainNegativeBelowOne", -5, "X", "en_US", "X -0.05"},
                             {"PlainSmallest", least, "X", "en_US", "X -92233720368547758.08"},
                         }),
                         rowName);

struct ParseRow {
    const char* name;
    std::string text;
    std::optional<std::int64_t> expected;
};

void PrintTo(const ParseRow& row, std::ostream* out) {
    *out << row.name;
}

class ParseCents : public testing::TestWithParam<ParseRow> {};

TEST_P(ParseCents, readsWhatPeopleType) {
    EXPECT_EQ(parseCents(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Row, ParseCents,
                         testing::ValuesIn(std::vector<ParseRow>{
                             {"Empty", "", absent},
                             {"LonePoint", ".", absent},
                             {"LoneComma", ",", absent},
                             {"TwoPoints", "..", absent},
                             {"NoDigit", "free of charge", absent},
                             {"OnlyBlanks", " \t ", absent},
                             {"DollarBlankAndThousands", "$ 1,200.50", 120050},
                             {"MinusFallsAway", "-5", 500},
                             {"UnicodeMinusFallsAway", "−5", 500},
                             {"Zero", "0", 0},
                             {"WholeNumber", "120", 12000},
                             {"TwoDecimals", "120.50", 12050},
                             {"CommaAndOneDecimal", "12,5", 1250},
                             {"TrailingPoint", "12.", 1200},
                             {"TrailingComma", "12,", 1200},
                             {"LeadingPoint", ".5", 50},
                             {"LeadingPointTwoDecimals", ".05", 5},
                             {"CommaAndThreeDigits", "1,234", 123400},
                             {"PointAndThreeDigits", "1.234", 123400},
                             {"ThreeDigitsBehindALoneZero", "0.125", 12500},
                             {"ThousandsAndDecimal", "1,234.5", 123450},
                             {"GermanThousandsAndDecimals", "1.234,56", 123456},
                             {"MillionsWithPoints", "1.234.567", 123456700},
                             {"MixedSeparators", "1,2.3,45", 12345},
                             {"SwissApostrophe", "1'234.50", 123450},
                             {"BlanksAndTabsAround", " \t120\t ", 12000},
                             {"LineBreak", "120\n", 12000},
                             {"CurrencyBehind", "120,50 €", 12050},
                             {"LettersBetween", "1a2b3", 12300},
                             {"LeadingZeros", "000000000000000000000000012.50", 1250},
                             {"TheLimit", "1000000000", 100'000'000'000},
                             {"TheLimitWithDecimals", "1000000000.00", 100'000'000'000},
                             {"OneCentAboveTheLimit", "1000000000.01", absent},
                             {"OneBelowTheLimit", "999999999.99", 99'999'999'999},
                             {"FarAboveTheLimit", std::string(400, '9'), absent},
                             {"Half", "½", absent},
                             {"NumberAndHalf", "12½", absent},
                             {"ArabicDigits", "١٢", absent},
                             {"NotUTF8", "12\xff.5", 1250},
                         }),
                         rowName);

class ParseBasisPoints : public testing::TestWithParam<ParseRow> {};

TEST_P(ParseBasisPoints, readsWhatPeopleType) {
    EXPECT_EQ(parseBasisPoints(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Row, ParseBasisPoints,
                         testing::ValuesIn(std::vector<ParseRow>{
                             {"Empty", "", absent},
                             {"LonePoint", ".", absent},
                             {"LoneComma", ",", absent},
                             {"NoDigit", "none", absent},
                             {"Zero", "0", 0},
                             {"Hundred", "100", 10000},
                             {"HundredWithDecimals", "100.00", 10000},
                             {"AboveHundred", "100.01", absent},
                             {"RoundedToHundred", "100.004", 10000},
                             {"RoundedAboveHundred", "100.005", absent},
                             {"Comma", "8,25", 825},
                             {"Point", "8.25", 825},
                             {"PercentSign", " 8.25 %", 825},
                             {"ThreeDigitsAreDecimals", "1.234", 123},
                             {"HalfRoundsUp", "8.255", 826},
                             {"BelowHalfRoundsDown", "8.254999999999999999999999999999999", 825},
                             {"LastSeparatorCounts", "1.0.5", 1050},
                             {"TrailingPoint", "8.", 800},
                             {"LeadingComma", ",5", 50},
                             {"MinusFallsAway", "-8", 800},
                         }),
                         rowName);

struct ScaledRow {
    const char* name;
    const char* text;
    std::int64_t limit;
    std::optional<std::int64_t> expected;
};

void PrintTo(const ScaledRow& row, std::ostream* out) {
    *out << row.name;
}

class ParseScaledDecimal : public testing::TestWithParam<ScaledRow> {};

TEST_P(ParseScaledDecimal, isExactAndRoundsHalvesUp) {
    const auto& row = GetParam();
    EXPECT_EQ(parseScaledDecimal(row.text, row.limit), row.expected);
}

INSTANTIATE_TEST_SUITE_P(Row, ParseScaledDecimal,
                         testing::ValuesIn(std::vector<ScaledRow>{
                             {"Half", "12.345", most, 1235},
                             {"BelowHalf", "12.3449999", most, 1234},
                             {"CarriesOver", "9.995", most, 1000},
                             {"Whole", "12", most, 1200},
                             {"OneDecimal", "12.3", most, 1230},
                             {"TrailingPoint", "12.", most, 1200},
                             {"LeadingPoint", ".5", most, 50},
                             {"Limit", "12", 1200, 1200},
                             {"AboveLimit", "12.01", 1200, absent},
                             {"RoundedAboveLimit", "12.005", 1200, absent},
                             {"Beyond64Bits", "92233720368547758.08", most, absent},
                             {"FarBeyond64Bits", "99999999999999999999999", most, absent},
                             {"Empty", "", most, absent},
                             {"LonePoint", ".", most, absent},
                             {"TwoPoints", "1.2.3", most, absent},
                             {"Comma", "1,2", most, absent},
                             {"Sign", "-1", most, absent},
                             {"Blank", " 1", most, absent},
                         }),
                         rowName);

struct PercentRow {
    const char* name;
    std::int64_t basisPoints;
    const char* text;
};

void PrintTo(const PercentRow& row, std::ostream* out) {
    *out << row.name;
}

class FormatBasisPoints : public testing::TestWithParam<PercentRow> {};

TEST_P(FormatBasisPoints, hasNoDecimalsOrTwo) {
    EXPECT_EQ(formatBasisPoints(GetParam().basisPoints), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Row, FormatBasisPoints,
                         testing::ValuesIn(std::vector<PercentRow>{
                             {"Zero", 0, "0"},
                             {"Hundred", 10000, "100"},
                             {"Whole", 800, "8"},
                             {"TwoDecimals", 825, "8.25"},
                             {"TrailingZeroStays", 850, "8.50"},
                             {"LeadingZeroStays", 805, "8.05"},
                             {"BelowOne", 5, "0.05"},
                             {"Negative", -850, "-8.50"},
                             {"NegativeWhole", -800, "-8"},
                         }),
                         rowName);

bool hasTwoDecimals(const std::string& code) {
    return formatCents(1, code, Locale("en_US")).ends_with("0.01");
}

TEST(MoneyFormat, aFormattedAmountParsesBackInEachCurrencyWithTwoDecimals) {
    std::mt19937_64 random(20260301);
    std::uniform_int_distribution<int> digits(1, 11);
    int currencies = 0;
    for (const std::string& code : commonCurrencyCodes()) {
        if (!hasTwoDecimals(code)) continue;
        ++currencies;
        for (int i = 0; i < 100; ++i) {
            std::int64_t cents = 0;
            for (int left = digits(random); left > 0; --left)
                cents = cents * 10 + static_cast<std::int64_t>(random() % 10);
            const std::string text = formatCents(cents, code, Locale("en_US"));
            ASSERT_EQ(parseCents(text), cents) << text;
        }
    }
    EXPECT_GT(currencies, 100);
}

TEST(MoneyFormat, eachPercentageParsesBack) {
    for (std::int64_t basisPoints = 0; basisPoints <= 10000; ++basisPoints)
        ASSERT_EQ(parseBasisPoints(formatBasisPoints(basisPoints)), basisPoints);
}

TEST(MoneyFormat, amountsReadAsTheUserWritesMoneyWhateverTheDatesAre) {
    const test::ScopedEnvironment all("LC_ALL", std::nullopt);
    const test::ScopedEnvironment money("LC_MONETARY", "de_DE.UTF-8");
    const test::ScopedEnvironment dates("LC_TIME", "en_GB.UTF-8");
    EXPECT_EQ(formatCents(123456, "EUR"), "1.234,56\u00a0€");
}

}  // namespace
}  // namespace elmworth
