// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <random>

#include "platform/Calendar.h"
#include "support/Instants.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::at;
using test::iso;
using test::rowName;
using test::textName;

struct IntervalRow {
    const char* name;
    const char* locale;
    const char* zone;
    CalendarUnit unit;
    const char* instant;
    const char* start;
    const char* end;
};

void PrintTo(const IntervalRow& row, std::ostream* out) {
    *out << row.name;
}

class CalendarInterval : public testing::TestWithParam<IntervalRow> {};

TEST_P(CalendarInterval, runsFromTheFirstInstantToTheFirstOneAfterIt) {
    const auto& row = GetParam();
    const Calendar calendar(Locale(row.locale), row.zone);
    const auto interval = calendar.interval(row.unit, at(row.instant));
    ASSERT_TRUE(interval);
    EXPECT_EQ(iso(interval->start), iso(at(row.start)));
    EXPECT_EQ(iso(interval->end), iso(at(row.end)));
}

TEST_P(CalendarInterval, startsWithTheStartOfItsFirstDay) {
    const auto& row = GetParam();
    const Calendar calendar(Locale(row.locale), row.zone);
    EXPECT_EQ(iso(calendar.startOfDay(at(row.start))), iso(at(row.start)));
    if (row.unit != CalendarUnit::day) return;
    EXPECT_EQ(iso(calendar.startOfDay(at(row.instant))), iso(at(row.start)));
}

constexpr auto day = CalendarUnit::day;
constexpr auto week = CalendarUnit::weekOfYear;
constexpr auto month = CalendarUnit::month;
constexpr auto year = CalendarUnit::year;

// clang-format off
INSTANTIATE_TEST_SUITE_P(Day, CalendarInterval, testing::ValuesIn(std::vector<IntervalRow>{
    {"UTC", "en_US", "UTC", day, "2026-01-15T15:00Z", "2026-01-15T00:00Z", "2026-01-16T00:00Z"},
    {"Before1970", "en_US", "UTC", day, "1969-07-20T20:17Z", "1969-07-20T00:00Z", "1969-07-21T00:00Z"},
    {"AtItsFirstInstant", "de_DE", "Europe/Berlin", day, "2026-01-15T00:00+01:00", "2026-01-15T00:00+01:00", "2026-01-16T00:00+01:00"},
    {"AtItsLastSecond", "de_DE", "Europe/Berlin", day, "2026-01-15T23:59:59+01:00", "2026-01-15T00:00+01:00", "2026-01-16T00:00+01:00"},
    {"Kathmandu", "en_US", "Asia/Kathmandu", day, "2026-01-15T00:30+05:45", "2026-01-15T00:00+05:45", "2026-01-16T00:00+05:45"},
    {"BerlinGapHas23Hours", "de_DE", "Europe/Berlin", day, "2026-03-29T12:00+02:00", "2026-03-29T00:00+01:00", "2026-03-30T00:00+02:00"},
    {"BerlinOverlapHas25Hours", "de_DE", "Europe/Berlin", day, "2026-10-25T12:00+01:00", "2026-10-25T00:00+02:00", "2026-10-26T00:00+01:00"},
    {"NewYorkGapHas23Hours", "en_US", "America/New_York", day, "2026-03-08T01:00-05:00", "2026-03-08T00:00-05:00", "2026-03-09T00:00-04:00"},
    {"NewYorkOverlapHas25Hours", "en_US", "America/New_York", day, "2026-11-01T01:30-05:00", "2026-11-01T00:00-04:00", "2026-11-02T00:00-05:00"},
    {"LordHoweGapHas23AndAHalfHours", "en_AU", "Australia/Lord_Howe", day, "2026-10-04T12:00+11:00", "2026-10-04T00:00+10:30", "2026-10-05T00:00+11:00"},
    {"LordHoweOverlapHas24AndAHalfHours", "en_AU", "Australia/Lord_Howe", day, "2026-04-05T12:00+10:30", "2026-04-05T00:00+11:00", "2026-04-06T00:00+10:30"},
    {"SaoPauloWithoutMidnightStartsAtOne", "pt_BR", "America/Sao_Paulo", day, "2018-11-04T12:00-02:00", "2018-11-04T01:00-02:00", "2018-11-05T00:00-02:00"},
    {"SaoPauloBeforeTheMissingMidnight", "pt_BR", "America/Sao_Paulo", day, "2018-11-03T23:59-03:00", "2018-11-03T00:00-03:00", "2018-11-04T01:00-02:00"},
    {"HavanaFirstMidnightHour", "es_CU", "America/Havana", day, "2025-11-02T00:30-04:00", "2025-11-02T00:00-04:00", "2025-11-03T00:00-05:00"},
    {"HavanaRepeatedMidnightHour", "es_CU", "America/Havana", day, "2025-11-02T00:30-05:00", "2025-11-02T00:00-04:00", "2025-11-03T00:00-05:00"},
    {"ApiaBeforeTheMissingDay", "en_US", "Pacific/Apia", day, "2011-12-29T12:00-10:00", "2011-12-29T00:00-10:00", "2011-12-31T00:00+14:00"},
    {"ApiaAfterTheMissingDay", "en_US", "Pacific/Apia", day, "2011-12-31T08:00+14:00", "2011-12-31T00:00+14:00", "2012-01-01T00:00+14:00"},
}), rowName);

INSTANTIATE_TEST_SUITE_P(Week, CalendarInterval, testing::ValuesIn(std::vector<IntervalRow>{
    {"SundayFirst", "en_US", "UTC", week, "2026-03-04T12:00Z", "2026-03-01T00:00Z", "2026-03-08T00:00Z"},
    {"SundayFirstOnSunday", "en_US", "UTC", week, "2026-03-01T12:00Z", "2026-03-01T00:00Z", "2026-03-08T00:00Z"},
    {"MondayFirst", "de_DE", "UTC", week, "2026-03-04T12:00Z", "2026-03-02T00:00Z", "2026-03-09T00:00Z"},
    {"MondayFirstOnSunday", "de_DE", "UTC", week, "2026-03-01T12:00Z", "2026-02-23T00:00Z", "2026-03-02T00:00Z"},
    {"SaturdayFirst", "ar_EG", "UTC", week, "2026-03-04T12:00Z", "2026-02-28T00:00Z", "2026-03-07T00:00Z"},
    {"SaturdayFirstOnFriday", "ar_EG", "UTC", week, "2026-03-06T12:00Z", "2026-02-28T00:00Z", "2026-03-07T00:00Z"},
    {"EndOfYearMondayFirst", "de_DE", "Europe/Berlin", week, "2025-12-31T12:00+01:00", "2025-12-29T00:00+01:00", "2026-01-05T00:00+01:00"},
    {"StartOfYearSundayFirst", "en_US", "America/New_York", week, "2026-01-01T12:00-05:00", "2025-12-28T00:00-05:00", "2026-01-04T00:00-05:00"},
    {"OverTheGap", "de_DE", "Europe/Berlin", week, "2026-03-25T12:00+01:00", "2026-03-23T00:00+01:00", "2026-03-30T00:00+02:00"},
    {"OverTheOverlap", "de_DE", "Europe/Berlin", week, "2026-10-25T02:30+01:00", "2026-10-19T00:00+02:00", "2026-10-26T00:00+01:00"},
    {"FirstDayWithoutMidnight", "en_US", "America/Sao_Paulo", week, "2018-11-07T12:00-02:00", "2018-11-04T01:00-02:00", "2018-11-11T00:00-02:00"},
    {"BeforeADayWithoutMidnight", "en_US", "America/Sao_Paulo", week, "2018-11-02T12:00-03:00", "2018-10-28T00:00-03:00", "2018-11-04T01:00-02:00"},
    {"ApiaBeforeTheMissingDay", "en_US", "Pacific/Apia", week, "2011-12-28T12:00-10:00", "2011-12-25T00:00-10:00", "2012-01-01T00:00+14:00"},
    {"ApiaAfterTheMissingDay", "en_US", "Pacific/Apia", week, "2011-12-31T12:00+14:00", "2011-12-25T00:00-10:00", "2012-01-01T00:00+14:00"},
}), rowName);

INSTANTIATE_TEST_SUITE_P(MonthAndYear, CalendarInterval, testing::ValuesIn(std::vector<IntervalRow>{
    {"MonthOf31Days", "en_US", "UTC", month, "2026-01-31T23:00Z", "2026-01-01T00:00Z", "2026-02-01T00:00Z"},
    {"FebruaryOfALeapYear", "en_US", "UTC", month, "2028-02-10T12:00Z", "2028-02-01T00:00Z", "2028-03-01T00:00Z"},
    {"DecemberEndsInTheNextYear", "en_US", "UTC", month, "2025-12-24T12:00Z", "2025-12-01T00:00Z", "2026-01-01T00:00Z"},
    {"MonthOverTheGap", "de_DE", "Europe/Berlin", month, "2026-03-31T12:00+02:00", "2026-03-01T00:00+01:00", "2026-04-01T00:00+02:00"},
    {"MonthOverARepeatedMidnight", "es_CU", "America/Havana", month, "2025-11-20T12:00-05:00", "2025-11-01T00:00-04:00", "2025-12-01T00:00-05:00"},
    {"MonthWithoutItsLastDay", "en_US", "Pacific/Kiritimati", month, "1994-12-10T12:00-10:00", "1994-12-01T00:00-10:00", "1995-01-01T00:00+14:00"},
    {"Year", "de_DE", "Europe/Berlin", year, "2026-07-01T12:00+02:00", "2026-01-01T00:00+01:00", "2027-01-01T00:00+01:00"},
    {"YearAtItsLastSecond", "en_US", "America/New_York", year, "2025-12-31T23:59:59-05:00", "2025-01-01T00:00-05:00", "2026-01-01T00:00-05:00"},
}), rowName);
// clang-format on

class CalendarOfZone : public testing::TestWithParam<const char*> {};

TEST_P(CalendarOfZone, laysDaysSideBySideWithoutGapOrOverlap) {
    const Calendar calendar(Locale("en_US"), GetParam());
    Instant cursor = calendar.startOfDay(at("2010-01-01T12:00Z"));
    const Instant end = at("2027-01-01T00:00Z");
    while (cursor < end) {
        const auto interval = calendar.interval(day, cursor);
        ASSERT_TRUE(interval);
        ASSERT_EQ(iso(interval->start), iso(cursor));
        ASSERT_LT(iso(interval->start), iso(interval->end));
        cursor = interval->end;
    }
}

TEST_P(CalendarOfZone, holdsEachInstantInItsPeriods) {
    const Calendar calendar(Locale("en_US"), GetParam());
    std::mt19937_64 random(20260301);
    std::uniform_int_distribution<std::int64_t> seconds(wholeSeconds(at("2008-01-01T00:00Z")),
                                                        wholeSeconds(at("2030-01-01T00:00Z")));
    for (int i = 0; i < 500; ++i) {
        const Instant instant{std::chrono::seconds(seconds(random))};
        for (const auto unit : {day, week, month, year}) {
            const auto interval = calendar.interval(unit, instant);
            ASSERT_TRUE(interval);
            ASSERT_LE(iso(interval->start), iso(instant));
            ASSERT_LT(iso(instant), iso(interval->end));
            ASSERT_EQ(calendar.interval(unit, interval->start), interval) << iso(instant);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Zone, CalendarOfZone,
                         testing::Values("UTC", "Europe/Berlin", "America/New_York",
                                         "America/Sao_Paulo", "America/Havana", "America/Santiago",
                                         "Pacific/Apia", "Australia/Lord_Howe", "Asia/Kathmandu",
                                         "Asia/Beirut", "Africa/Casablanca", "Antarctica/Troll"),
                         textName);

}  // namespace
}  // namespace elmworth
