// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DateFormatter.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

#include "support/Instants.h"
#include "support/Rows.h"
#include "support/ScopedEnvironment.h"

namespace elmworth {
namespace {

using test::at;
using test::rowName;
using Style = DateFormatter::Style;

struct FormatRow {
    const char* name;
    Style style;
    const char* locale;
    const char* zone;
    const char* text;
};

void PrintTo(const FormatRow& row, std::ostream* out) {
    *out << row.name;
}

class DateFormatterText : public testing::TestWithParam<FormatRow> {};

TEST_P(DateFormatterText, isTheLocalesOwn) {
    const auto& row = GetParam();
    const DateFormatter formatter(row.style, Locale(row.locale), row.zone);
    EXPECT_EQ(formatter.string(at("2026-03-01T20:30Z")), row.text);
}

INSTANTIATE_TEST_SUITE_P(
    Row, DateFormatterText,
    testing::ValuesIn(std::vector<FormatRow>{
        {"MediumDateAmerican", Style::mediumDate, "en_US", "UTC", "Mar 1, 2026"},
        {"MediumDateGerman", Style::mediumDate, "de_DE", "UTC", "01.03.2026"},
        {"MediumDateBritish", Style::mediumDate, "en_GB", "UTC", "1 Mar 2026"},
        {"MediumDateInTheNextDaysZone", Style::mediumDate, "en_US", "Asia/Kathmandu",
         "Mar 2, 2026"},
        {"ShortTimeAmerican", Style::shortTime, "en_US", "UTC", "8:30\u202fPM"},
        {"ShortTimeGerman", Style::shortTime, "de_DE", "UTC", "20:30"},
        {"ShortTimeInAZone", Style::shortTime, "de_DE", "Europe/Berlin", "21:30"},
        {"MonthDayAmerican", Style::monthDay, "en_US", "UTC", "Mar 1"},
        {"MonthDayGerman", Style::monthDay, "de_DE", "UTC", "1. März"},
        {"WeekdayAmerican", Style::weekday, "en_US", "UTC", "Sunday"},
        {"WeekdayGerman", Style::weekday, "de_DE", "UTC", "Sonntag"},
        {"WeekdayInTheNextDaysZone", Style::weekday, "en_US", "Asia/Kathmandu", "Monday"},
        {"WeekdayMonthDayAmerican", Style::weekdayMonthDay, "en_US", "UTC", "Sunday, Mar 1"},
        {"WeekdayMonthDayGerman", Style::weekdayMonthDay, "de_DE", "UTC", "Sonntag, 1. März"},
        {"ShortWeekdayAmerican", Style::shortWeekday, "en_US", "UTC", "Sun"},
        {"ShortWeekdayGerman", Style::shortWeekday, "de_DE", "UTC", "So"},
        {"DayOfMonthAmerican", Style::dayOfMonth, "en_US", "UTC", "1"},
        {"DayOfMonthInTheNextDaysZone", Style::dayOfMonth, "en_US", "Asia/Kathmandu", "2"},
        {"FullDateAmerican", Style::fullDate, "en_US", "UTC", "Sunday, March 1, 2026"},
        {"FullDateGerman", Style::fullDate, "de_DE", "UTC", "Sonntag, 1. März 2026"},
        {"MonthYearAmerican", Style::monthYear, "en_US", "UTC", "March 2026"},
        {"MonthYearJapanese", Style::monthYear, "ja_JP", "UTC", "2026年3月"},
        {"DayOfMonthJapanese", Style::dayOfMonth, "ja_JP", "UTC", "1"},
        {"DayOfMonthEgyptian", Style::dayOfMonth, "ar_EG", "UTC", "١"},
        {"WeekdayInitialsAmerican", Style::weekdayInitials, "en_US", "UTC", "Su"},
        {"WeekdayInitialsGerman", Style::weekdayInitials, "de_DE", "UTC", "So."},
    }),
    rowName);

TEST(DateFormatter, keepsTextsThatAreThoseOfANewOne) {
    std::mt19937_64 random(11);
    for (const auto& [style, locale] :
         {std::pair(Style::shortTime, "en_US"), std::pair(Style::shortTime, "zh_TW"),
          std::pair(Style::mediumDate, "de_DE"), std::pair(Style::fullDate, "ar_EG"),
          std::pair(Style::weekday, "ja_JP")}) {
        const DateFormatter kept(style, Locale(locale), "America/New_York");
        // Over the change of the clocks of November 1, on which an hour comes twice.
        std::uniform_int_distribution<int> seconds(-200'000, 200'000);
        for (int i = 0; i < 60; ++i) {
            const Instant instant = at("2026-11-01T06:00Z") + std::chrono::seconds(seconds(random));
            const DateFormatter fresh(style, Locale(locale), "America/New_York");
            ASSERT_EQ(kept.string(instant), fresh.string(instant)) << locale << i;
        }
    }
}

TEST(DateFormatter, theSharedOnesAreMadeOnceInTheCurrentLocaleAndZone) {
    const test::ScopedEnvironment zone("TZ", "Asia/Kathmandu");
    const test::ScopedEnvironment locale("LC_ALL", "de_DE.UTF-8");
    EXPECT_EQ(mediumDateFormatter().string(at("2026-03-01T20:30Z")), "02.03.2026");
    EXPECT_EQ(shortTimeFormatter().string(at("2026-03-01T20:30Z")), "02:15");
    EXPECT_EQ(&mediumDateFormatter(), &mediumDateFormatter());
    EXPECT_EQ(&shortTimeFormatter(), &shortTimeFormatter());
}

}  // namespace
}  // namespace elmworth
