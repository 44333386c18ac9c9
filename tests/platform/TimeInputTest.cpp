// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/TimeInput.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>

#include <vector>

#include "support/Rows.h"

namespace elmworth {
namespace {

using test::rowName;

std::string clock(const std::optional<ClockTime>& time) {
    if (!time) return "none";
    const auto padded = [](int number) {
        return (number < 10 ? "0" : "") + std::to_string(number);
    };
    return padded(time->hour) + ':' + padded(time->minute);
}

struct TextRow {
    const char* name;
    const char* locale;
    const char* text;
};

void PrintTo(const TextRow& row, std::ostream* out) {
    *out << row.name;
}

class TimeInputText : public testing::TestWithParam<TextRow> {};

TEST_P(TimeInputText, isTheLocalesShortForm) {
    EXPECT_EQ(TimeInput(Locale(GetParam().locale)).text({21, 5}), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Row, TimeInputText,
                         testing::ValuesIn(std::vector<TextRow>{
                             {"American", "en_US", "9:05\u202fPM"},
                             {"British", "en_GB", "21:05"},
                             {"German", "de_DE", "21:05"},
                             {"Swedish", "sv_SE", "21:05"},
                             {"Japanese", "ja_JP", "21:05"},
                             {"Egyptian", "ar_EG", "٩:٠٥ م"},
                         }),
                         rowName);

struct TypedRow {
    const char* name;
    const char* locale;
    const char* typed;
    const char* time;
};

void PrintTo(const TypedRow& row, std::ostream* out) {
    *out << row.name;
}

class TimeInputTyped : public testing::TestWithParam<TypedRow> {};

TEST_P(TimeInputTyped, meansATime) {
    const auto& row = GetParam();
    EXPECT_EQ(clock(TimeInput(Locale(row.locale)).time(row.typed)), row.time);
}

INSTANTIATE_TEST_SUITE_P(Row, TimeInputTyped,
                         testing::ValuesIn(std::vector<TypedRow>{
                             {"Hour", "en_US", "9", "09:00"},
                             {"HourOfTwoDigits", "de_DE", "21", "21:00"},
                             {"ThreeDigits", "en_US", "930", "09:30"},
                             {"FourDigits", "en_US", "2130", "21:30"},
                             {"FourDigitsWithAZero", "en_US", "0930", "09:30"},
                             {"Colon", "en_US", "9:30", "09:30"},
                             {"Point", "en_US", "9.30", "09:30"},
                             {"WhileTyping", "en_US", "9:", "09:00"},
                             {"TwentyFourHoursInAmerican", "en_US", "21:30", "21:30"},
                             {"HourPM", "en_US", "9pm", "21:00"},
                             {"HourP", "en_US", "9p", "21:00"},
                             {"PMBlankInCapitals", "en_US", "9:30 PM", "21:30"},
                             {"PMNarrowBlank", "en_US", "9:30\u202fPM", "21:30"},
                             {"PMInStops", "en_US", "9:30 p.m.", "21:30"},
                             {"PMInGerman", "de_DE", "9:30 pm", "21:30"},
                             {"DigitsPM", "en_US", "930pm", "21:30"},
                             {"Noon", "en_US", "12pm", "12:00"},
                             {"Midnight", "en_US", "12am", "00:00"},
                             {"MidnightInGerman", "de_DE", "0:00", "00:00"},
                             {"LastMinute", "sv_SE", "23:59", "23:59"},
                             {"French", "fr_FR", "9h30", "09:30"},
                             {"Canadian", "fr_CA", "21 h 05", "21:05"},
                             {"Japanese", "ja_JP", "21:05", "21:05"},
                             {"JapaneseHalf", "ja_JP", "午後9:05", "21:05"},
                             {"Egyptian", "ar_EG", "٩:٠٥ م", "21:05"},
                             {"EgyptianInLatinDigits", "ar_EG", "9:05", "09:05"},
                             {"Empty", "en_US", "", "none"},
                             {"Word", "en_US", "noonish", "none"},
                             {"HalfAlone", "en_US", "pm", "none"},
                             {"TooLate", "en_US", "24:00", "none"},
                             {"TooManyMinutes", "en_US", "9:60", "none"},
                             {"DigitsWithTooManyMinutes", "en_US", "960", "none"},
                             {"OneDigitOfMinutes", "en_US", "9:3", "none"},
                             {"Seconds", "en_US", "9:30:15", "none"},
                             {"FiveDigits", "en_US", "09300", "none"},
                             {"AfternoonOfTheLongClock", "en_US", "21:30 PM", "none"},
                             {"EndlessNumber", "en_US", "99999999999999999999", "none"},
                         }),
                         rowName);

TEST(TimeInput, theTextOfATimeMeansThatTimeInEveryLocale) {
    int count = 0;
    const auto* locales = icu::Locale::getAvailableLocales(count);
    for (int i = 0; i < count; ++i) {
        const Locale locale(locales[i].getName());
        const TimeInput input(locale);
        for (const ClockTime time :
             {ClockTime{0, 0}, {0, 5}, {9, 30}, {12, 0}, {12, 59}, {21, 5}}) {
            const auto text = input.text(time);
            EXPECT_EQ(clock(input.time(text)), clock(time)) << locale.identifier() << ' ' << text;
        }
    }
    EXPECT_GT(count, 500);
}

TEST(TimeInput, thePartsStandWhereTheTextHasThem) {
    using Parts = std::vector<DatePartSpan>;
    EXPECT_EQ(
        TimeInput(Locale("en_US")).parts({21, 5}),
        (Parts{{DatePart::hour, 0, 1}, {DatePart::minute, 2, 4}, {DatePart::dayPeriod, 5, 7}}));
    EXPECT_EQ(TimeInput(Locale("de_DE")).parts({21, 5}),
              (Parts{{DatePart::hour, 0, 2}, {DatePart::minute, 3, 5}}));
}

}  // namespace
}  // namespace elmworth
