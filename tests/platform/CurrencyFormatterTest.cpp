// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/CurrencyFormatter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/Rows.h"

namespace elmworth {
namespace {

using test::rowName;

struct CurrencyRow {
    const char* name;
    std::int64_t hundredths;
    const char* code;
    const char* locale;
    const char* text;
};

void PrintTo(const CurrencyRow& row, std::ostream* out) {
    *out << row.name;
}

class CurrencyText : public testing::TestWithParam<CurrencyRow> {};

TEST_P(CurrencyText, isTheLocalesOwnWithTheCurrencysDecimals) {
    const auto& row = GetParam();
    EXPECT_EQ(formatCurrency(row.hundredths, row.code, Locale(row.locale)), row.text);
}

constexpr auto most = std::numeric_limits<std::int64_t>::max();
constexpr auto least = std::numeric_limits<std::int64_t>::min();

INSTANTIATE_TEST_SUITE_P(
    Row, CurrencyText,
    testing::ValuesIn(std::vector<CurrencyRow>{
        {"WholeAmountKeepsItsDecimals", 1200, "USD", "en_US", "$12.00"},
        {"SmallestAmount", 1, "USD", "en_US", "$0.01"},
        {"Zero", 0, "USD", "en_US", "$0.00"},
        {"Grouped", 123456789, "USD", "en_US", "$1,234,567.89"},
        {"Negative", -1205, "USD", "en_US", "-$12.05"},
        {"NegativeBelowOne", -5, "USD", "en_US", "-$0.05"},
        {"GermanEuro", 123456, "EUR", "de_DE", "1.234,56\u00a0€"},
        {"GermanNegativeEuro", -123456, "EUR", "de_DE", "-1.234,56\u00a0€"},
        {"SwissFranc", 123456, "CHF", "de_CH", "CHF\u00a01’234.56"},
        {"ForeignDollarInCanada", 100, "USD", "en_CA", "US$1.00"},
        {"YenHasNoDecimals", 123400, "JPY", "en_US", "¥1,234"},
        {"YenIsRounded", 123460, "JPY", "en_US", "¥1,235"},
        {"DinarHasThreeDecimals", 123456, "KWD", "en_US", "KWD\u00a01,234.560"},
        {"UnknownCurrencyIsItsCode", 1200, "ZZZ", "en_US", "ZZZ\u00a012.00"},
        {"LargestIsExact", most, "USD", "en_US", "$92,233,720,368,547,758.07"},
        {"SmallestIsExact", least, "USD", "en_US", "-$92,233,720,368,547,758.08"},
    }),
    rowName);

TEST(CurrencyFormatter, aCodeThatIsNotThreeLettersHasNoText) {
    for (const char* code : {"", "US", "USDX", "U$D", "12€", "ÄB"})
        EXPECT_EQ(formatCurrency(1200, code, Locale("en_US")), std::nullopt) << code;
}

TEST(CurrencyFormatter, manyCurrenciesInTurnKeepTheirOwnForms) {
    for (int round = 0; round < 2; ++round)
        for (const std::string& code : commonCurrencyCodes())
            EXPECT_NE(formatCurrency(100, code, Locale("en_US")), std::nullopt) << code;
    EXPECT_EQ(formatCurrency(100, "EUR", Locale("en_US")), "€1.00");
}

TEST(CurrencyFormatter, commonCodesAreSortedAndInUse) {
    const auto& codes = commonCurrencyCodes();
    EXPECT_TRUE(std::is_sorted(codes.begin(), codes.end()));
    EXPECT_THAT(codes, testing::IsSupersetOf({"CHF", "EUR", "GBP", "JPY", "USD"}));
    EXPECT_THAT(codes, testing::Not(testing::Contains("DEM")));
}

struct NamedCurrency {
    const char* name;
    const char* code;
    const char* locale;
    const char* named;
};

class CurrencyNames : public testing::TestWithParam<NamedCurrency> {};

TEST_P(CurrencyNames, areThoseOfTheLocaleOrTheCode) {
    const auto& [name, code, locale, named] = GetParam();
    EXPECT_EQ(currencyName(code, Locale(locale)), named);
}

const NamedCurrency namedCurrencies[] = {
    {"english", "USD", "en_US", "US Dollar"},
    {"german", "USD", "de_DE", "US-Dollar"},
    {"japanese", "JPY", "ja_JP", "日本円"},
    {"formerOne", "DEM", "en_US", "German Mark"},
    {"unknown", "QQQ", "en_US", "QQQ"},
    {"noCode", "dollar", "en_US", "dollar"},
    {"empty", "", "en_US", ""},
};
INSTANTIATE_TEST_SUITE_P(Names, CurrencyNames, testing::ValuesIn(namedCurrencies),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace elmworth
