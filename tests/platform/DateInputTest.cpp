// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DateInput.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>

#include <vector>

#include "support/Rows.h"

namespace elmworth {
namespace {

using test::rowName;

constexpr DateComponents reference{2026, 3, 15};

std::string iso(const std::optional<DateComponents>& day) {
    if (!day) return "none";
    const auto padded = [](int number) {
        return (number < 10 ? "0" : "") + std::to_string(number);
    };
    return std::to_string(day->year) + '-' + padded(day->month) + '-' + padded(day->day);
}

struct TextRow {
    const char* name;
    const char* locale;
    const char* text;
};

void PrintTo(const TextRow& row, std::ostream* out) {
    *out << row.name;
}

class DateInputText : public testing::TestWithParam<TextRow> {};

TEST_P(DateInputText, isTheLocalesShortFormWithTheWholeYear) {
    EXPECT_EQ(DateInput(Locale(GetParam().locale)).text({2026, 3, 2}), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Row, DateInputText,
                         testing::ValuesIn(std::vector<TextRow>{
                             {"American", "en_US", "3/2/2026"},
                             {"British", "en_GB", "02/03/2026"},
                             {"German", "de_DE", "02.03.2026"},
                             {"Swedish", "sv_SE", "2026-03-02"},
                             {"Japanese", "ja_JP", "2026/03/02"},
                             {"Egyptian", "ar_EG", "٢\u200f/٣\u200f/٢٠٢٦"},
                         }),
                         rowName);

struct TypedRow {
    const char* name;
    const char* locale;
    const char* typed;
    const char* day;
};

void PrintTo(const TypedRow& row, std::ostream* out) {
    *out << row.name;
}

class DateInputTyped : public testing::TestWithParam<TypedRow> {};

TEST_P(DateInputTyped, meansADay) {
    const auto& row = GetParam();
    EXPECT_EQ(iso(DateInput(Locale(row.locale)).day(row.typed, reference)), row.day);
}

INSTANTIATE_TEST_SUITE_P(Row, DateInputTyped,
                         testing::ValuesIn(std::vector<TypedRow>{
                             {"American", "en_US", "3/2/2026", "2026-03-02"},
                             {"AmericanWithZeros", "en_US", "03/02/2026", "2026-03-02"},
                             {"AmericanInDots", "en_US", "3.2.2026", "2026-03-02"},
                             {"AmericanInBlanks", "en_US", "  3 2 2026 ", "2026-03-02"},
                             {"AmericanShortYear", "en_US", "3/2/24", "2024-03-02"},
                             {"AmericanNextYears", "en_US", "3/2/46", "2046-03-02"},
                             {"AmericanLastCentury", "en_US", "3/2/47", "1947-03-02"},
                             {"AmericanWithoutYear", "en_US", "4/2", "2026-04-02"},
                             {"AmericanWithoutYearWhileTyping", "en_US", "4/2/", "2026-04-02"},
                             {"AmericanDayAlone", "en_US", "9", "2026-03-09"},
                             {"AmericanName", "en_US", "Apr 2, 2025", "2025-04-02"},
                             {"AmericanLongName", "en_US", "april 2, 2025", "2025-04-02"},
                             {"AmericanNameWithoutYear", "en_US", "Apr 2", "2026-04-02"},
                             {"AmericanOddSpaces", "en_US", "\u00a03/2/2026\u2003", "2026-03-02"},
                             {"AmericanLeapDay", "en_US", "2/29/2024", "2024-02-29"},
                             {"AmericanNoLeapDay", "en_US", "2/29/2026", "none"},
                             {"AmericanNoThirteenthMonth", "en_US", "13/2/2026", "none"},
                             {"AmericanDayZero", "en_US", "3/0/2026", "none"},
                             {"ISO", "en_US", "2026-03-02", "2026-03-02"},
                             {"ISOWithoutZeros", "en_US", "2026-3-2", "2026-03-02"},
                             {"ISOInGerman", "de_DE", "2026-03-02", "2026-03-02"},
                             {"ISOInEgyptianDigits", "ar_EG", "٢٠٢٦-٠٣-٠٢", "2026-03-02"},
                             {"ISOInABuddhistCalendar", "th_TH", "2026-03-02", "2569-03-02"},
                             {"YearFirstInSlashes", "de_DE", "2026/3/2", "2026-03-02"},
                             {"British", "en_GB", "2/3/2026", "2026-03-02"},
                             {"BritishWithoutYear", "en_GB", "2/4", "2026-04-02"},
                             {"BritishName", "en_GB", "2 Apr 2025", "2025-04-02"},
                             {"German", "de_DE", "2.3.2026", "2026-03-02"},
                             {"GermanWithoutYear", "de_DE", "2.4.", "2026-04-02"},
                             {"GermanShortYear", "de_DE", "02.03.26", "2026-03-02"},
                             {"GermanName", "de_DE", "2. April 2025", "2025-04-02"},
                             {"Swedish", "sv_SE", "2026-03-02", "2026-03-02"},
                             {"SwedishWithoutYear", "sv_SE", "04-02", "2026-04-02"},
                             {"Japanese", "ja_JP", "2026/03/02", "2026-03-02"},
                             {"JapaneseName", "ja_JP", "2026年3月2日", "2026-03-02"},
                             {"JapaneseWideDigits", "ja_JP", "２０２６/３/２", "2026-03-02"},
                             {"Egyptian", "ar_EG", "٢\u200f/٣\u200f/٢٠٢٦", "2026-03-02"},
                             {"EgyptianInLatinDigits", "ar_EG", "2/3/2026", "2026-03-02"},
                             {"Empty", "en_US", "", "none"},
                             {"Blank", "en_US", "   ", "none"},
                             {"Words", "en_US", "next week", "none"},
                             {"NumbersAndWords", "en_US", "3/2/2026 or so", "none"},
                             {"YearOfThreeDigits", "en_US", "3/2/202", "none"},
                             {"YearOfOneDigit", "en_US", "3/2/2", "none"},
                             {"YearZero", "en_US", "0000-01-01", "none"},
                             {"YearOfFiveDigits", "en_US", "3/2/20266", "none"},
                             {"FourNumbers", "en_US", "3/2/2026/1", "none"},
                             {"NameWithAnEndlessYear", "en_US", "Mar 2, 99999999", "none"},
                             {"EndlessNumber", "en_US", "99999999999999999999", "none"},
                             {"NoUTF8", "en_US", "\xff\xfe", "none"},
                         }),
                         rowName);

TEST(DateInput, aLongTextIsNoDay) {
    EXPECT_EQ(DateInput(Locale("en_US")).day(std::string(1'000'000, '3'), reference), std::nullopt);
}

TEST(DateInput, theTextOfADayMeansThatDayInEveryLocale) {
    int count = 0;
    const auto* locales = icu::Locale::getAvailableLocales(count);
    for (int i = 0; i < count; ++i) {
        const Locale locale(locales[i].getName());
        const DateInput input(locale);
        const Calendar calendar(locale, "UTC");
        for (const int days : {20514, 20453, 19782, -9000}) {
            auto day = calendar.components(Instant(std::chrono::days(days)));
            const auto text = input.text(day);
            EXPECT_EQ(iso(input.day(text, day)), iso(day)) << locale.identifier() << ' ' << text;
        }
    }
    EXPECT_GT(count, 500);
}

TEST(DateInput, thePartsStandWhereTheTextHasThem) {
    using Parts = std::vector<DatePartSpan>;
    EXPECT_EQ(DateInput(Locale("en_US")).parts({2026, 3, 12}),
              (Parts{{DatePart::month, 0, 1}, {DatePart::day, 2, 4}, {DatePart::year, 5, 9}}));
    EXPECT_EQ(DateInput(Locale("de_DE")).parts({2026, 3, 2}),
              (Parts{{DatePart::day, 0, 2}, {DatePart::month, 3, 5}, {DatePart::year, 6, 10}}));
    EXPECT_EQ(DateInput(Locale("sv_SE")).parts({2026, 3, 2}),
              (Parts{{DatePart::year, 0, 4}, {DatePart::month, 5, 7}, {DatePart::day, 8, 10}}));
}

}  // namespace
}  // namespace elmworth
