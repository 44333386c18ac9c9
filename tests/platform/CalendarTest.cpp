// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Calendar.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/Instants.h"
#include "support/Rows.h"
#include "support/ScopedEnvironment.h"

namespace elmworth {
namespace {

using test::at;
using test::iso;
using test::rowName;
using test::ScopedEnvironment;

Calendar in(const char* zone) {
    return Calendar(Locale("en_US"), zone);
}

struct AddingRow {
    const char* name;
    const char* zone;
    int value;
    CalendarUnit unit;
    const char* from;
    const char* expected;
};

void PrintTo(const AddingRow& row, std::ostream* out) {
    *out << row.name;
}

class CalendarAdding : public testing::TestWithParam<AddingRow> {};

TEST_P(CalendarAdding, movesTheCalendarPageAndKeepsTheWallClock) {
    const auto& row = GetParam();
    const auto moved = in(row.zone).adding(row.value, row.unit, at(row.from));
    ASSERT_TRUE(moved);
    EXPECT_EQ(iso(*moved), iso(at(row.expected)));
}

constexpr auto day = CalendarUnit::day;
constexpr auto week = CalendarUnit::weekOfYear;
constexpr auto month = CalendarUnit::month;
constexpr auto year = CalendarUnit::year;

// clang-format off
INSTANTIATE_TEST_SUITE_P(Row, CalendarAdding, testing::ValuesIn(std::vector<AddingRow>{
    {"OneDay", "UTC", 1, day, "2026-02-28T10:00Z", "2026-03-01T10:00Z"},
    {"OneWeekBack", "UTC", -1, week, "2026-01-03T10:00Z", "2025-12-27T10:00Z"},
    {"OneMonthBeforeMarch31LandsInFebruary", "UTC", -1, month, "2026-03-31T10:00Z", "2026-02-28T10:00Z"},
    {"OneMonthBeforeMarch31InALeapYear", "UTC", -1, month, "2028-03-31T10:00Z", "2028-02-29T10:00Z"},
    {"OneYearAfterALeapDay", "UTC", 1, year, "2028-02-29T10:00Z", "2029-02-28T10:00Z"},
    {"ADayAcrossTheGap", "Europe/Berlin", 1, day, "2026-03-28T10:00+01:00", "2026-03-29T10:00+02:00"},
    {"ADayAcrossTheOverlap", "Europe/Berlin", 1, day, "2026-10-24T10:00+02:00", "2026-10-25T10:00+01:00"},
    {"IntoTheGapIsTheNextValidTime", "Europe/Berlin", 1, day, "2026-03-28T02:30+01:00", "2026-03-29T03:00+02:00"},
    {"BackIntoTheGapIsTheNextValidTime", "Europe/Berlin", -1, day, "2026-03-30T02:30+02:00", "2026-03-29T03:00+02:00"},
    {"IntoTheOverlapIsTheFirstOccurrence", "Europe/Berlin", 1, day, "2026-10-24T02:30+02:00", "2026-10-25T02:30+02:00"},
    {"BackIntoTheOverlapIsTheFirstOccurrence", "Europe/Berlin", -1, day, "2026-10-26T02:30+01:00", "2026-10-25T02:30+02:00"},
    {"AMonthIntoTheGap", "America/New_York", 1, month, "2026-02-08T02:15-05:00", "2026-03-08T03:00-04:00"},
    {"LordHoweIntoTheHalfHourGap", "Australia/Lord_Howe", 1, day, "2026-10-03T02:15+10:30", "2026-10-04T02:30+11:00"},
    {"SaoPauloToAMissingMidnight", "America/Sao_Paulo", 1, day, "2018-11-03T00:00-03:00", "2018-11-04T01:00-02:00"},
    {"ApiaOverTheMissingDay", "Pacific/Apia", 1, day, "2011-12-29T10:00-10:00", "2011-12-31T10:00+14:00"},
    {"ApiaBackOverTheMissingDay", "Pacific/Apia", -1, day, "2011-12-31T10:00+14:00", "2011-12-29T10:00-10:00"},
}), rowName);
// clang-format on

TEST(Calendar, addingKeepsTheMicroseconds) {
    const Instant instant = at("2026-01-15T10:00Z") + std::chrono::microseconds(123456);
    EXPECT_EQ(in("UTC").adding(1, day, instant), instant + std::chrono::hours(24));
}

TEST(Calendar, addingBeyondAllDatesIsAbsent) {
    constexpr int most = std::numeric_limits<int>::max();
    for (const auto unit : {day, week, month, year}) {
        EXPECT_FALSE(in("UTC").adding(most, unit, at("2026-01-15T10:00Z")));
        EXPECT_FALSE(in("UTC").adding(-most, unit, at("2026-01-15T10:00Z")));
    }
    constexpr int yearsIn32BitsOfDays = 11'759'221;
    EXPECT_FALSE(in("UTC").adding(yearsIn32BitsOfDays, year, at("2026-01-15T10:00Z")));
    EXPECT_FALSE(in("UTC").adding(1, year, Instant::max()));
    EXPECT_FALSE(in("UTC").interval(year, Instant::max()));
}

struct DateRow {
    const char* name;
    const char* zone;
    DateComponents components;
    const char* expected;  ///< null: absent
};

void PrintTo(const DateRow& row, std::ostream* out) {
    *out << row.name;
}

class CalendarDate : public testing::TestWithParam<DateRow> {};

TEST_P(CalendarDate, isTheInstantOfAWallClockTime) {
    const auto& row = GetParam();
    const auto date = in(row.zone).date(row.components);
    ASSERT_EQ(date.has_value(), row.expected != nullptr);
    if (row.expected == nullptr) return;
    EXPECT_EQ(iso(*date), iso(at(row.expected)));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Row, CalendarDate, testing::ValuesIn(std::vector<DateRow>{
    {"Ordinary", "Asia/Kathmandu", {2026, 3, 1, 9, 30, 15}, "2026-03-01T09:30:15+05:45"},
    {"LeapDay", "UTC", {2028, 2, 29}, "2028-02-29T00:00Z"},
    {"GapIsTheNextValidTime", "Europe/Berlin", {2026, 3, 29, 2, 30, 0}, "2026-03-29T03:00+02:00"},
    {"OverlapIsTheFirstOccurrence", "Europe/Berlin", {2026, 10, 25, 2, 30, 0}, "2026-10-25T02:30+02:00"},
    {"MissingMidnight", "America/Sao_Paulo", {2018, 11, 4}, "2018-11-04T01:00-02:00"},
    {"RepeatedMidnight", "America/Havana", {2025, 11, 2}, "2025-11-02T00:00-04:00"},
    {"MissingDay", "Pacific/Apia", {2011, 12, 30, 10, 0, 0}, nullptr},
    {"ThirtyFirstOfApril", "UTC", {2026, 4, 31}, nullptr},
    {"LeapDayOfACommonYear", "UTC", {2026, 2, 29}, nullptr},
    {"DayZero", "UTC", {2026, 4, 0}, nullptr},
    {"MonthZero", "UTC", {2026, 0, 1}, nullptr},
    {"MonthThirteen", "UTC", {2026, 13, 1}, nullptr},
    {"YearZero", "UTC", {0, 1, 1}, nullptr},
    {"FarthestYear", "UTC", {std::numeric_limits<int>::max(), 1, 1}, nullptr},
    {"HourTwentyFour", "UTC", {2026, 4, 1, 24, 0, 0}, nullptr},
    {"MinuteSixty", "UTC", {2026, 4, 1, 9, 60, 0}, nullptr},
    {"SecondSixty", "UTC", {2026, 4, 1, 9, 0, 60}, nullptr},
    {"NegativeHour", "UTC", {2026, 4, 1, -1, 0, 0}, nullptr},
}), rowName);
// clang-format on

TEST(Calendar, componentsAreTheWallClockOfTheZone) {
    const DateComponents expected{2026, 2, 28, 19, 30, 15, 7};
    EXPECT_EQ(in("America/New_York").components(at("2026-03-01T00:30:15Z")), expected);
}

TEST(Calendar, componentsOfADateGiveTheDateAgain) {
    const Calendar calendar = in("Europe/Berlin");
    const Instant instant = at("2026-07-14T18:45:59+02:00");
    EXPECT_EQ(calendar.date(calendar.components(instant)), instant);
}

TEST(Calendar, settingTimeStaysOnTheDay) {
    const Calendar berlin = in("Europe/Berlin");
    const auto late = berlin.settingTime(23, 59, 59, at("2026-01-15T00:00+01:00"));
    ASSERT_TRUE(late);
    EXPECT_EQ(iso(*late), iso(at("2026-01-15T23:59:59+01:00")));
}

TEST(Calendar, settingASkippedTimeGivesTheNextValidOne) {
    const auto time = in("Europe/Berlin").settingTime(2, 30, 0, at("2026-03-29T12:00+02:00"));
    ASSERT_TRUE(time);
    EXPECT_EQ(iso(*time), iso(at("2026-03-29T03:00+02:00")));
}

TEST(Calendar, settingATimeThatNoClockShowsIsAbsent) {
    EXPECT_FALSE(in("UTC").settingTime(24, 0, 0, at("2026-01-15T00:00Z")));
}

TEST(Calendar, daysBetweenCountsDatesAndNotHours) {
    const Calendar berlin = in("Europe/Berlin");
    const auto days = [&](const char* from, const char* to) {
        return berlin.daysBetween(at(from), at(to));
    };
    EXPECT_EQ(days("2026-01-15T23:59+01:00", "2026-01-16T00:01+01:00"), 1);
    EXPECT_EQ(days("2026-01-15T00:01+01:00", "2026-01-15T23:59+01:00"), 0);
    EXPECT_EQ(days("2026-03-28T23:00+01:00", "2026-03-30T00:00+02:00"), 2);
    EXPECT_EQ(days("2026-10-26T00:00+01:00", "2026-10-24T23:00+02:00"), -2);
    EXPECT_EQ(days("2026-01-01T00:00+01:00", "2027-01-01T00:00+01:00"), 365);
}

TEST(Calendar, daysBetweenLeavesOutADayThatTheZoneSkipped) {
    const Calendar apia = in("Pacific/Apia");
    EXPECT_EQ(apia.daysBetween(at("2011-12-29T00:00-10:00"), at("2011-12-31T23:00+14:00")), 1);
}

TEST(Calendar, daysBetweenIsRightAroundAMissingMidnight) {
    const Calendar saoPaulo = in("America/Sao_Paulo");
    EXPECT_EQ(saoPaulo.daysBetween(at("2018-11-04T01:00-02:00"), at("2018-11-05T00:00-02:00")), 1);
}

TEST(Calendar, secondsFromUTCFollowTheZoneChanges) {
    EXPECT_EQ(in("Europe/Berlin").secondsFromUTC(at("2026-03-29T00:59:59Z")), 3600);
    EXPECT_EQ(in("Europe/Berlin").secondsFromUTC(at("2026-03-29T01:00:00Z")), 7200);
    EXPECT_EQ(in("Asia/Kathmandu").secondsFromUTC(at("2026-03-29T01:00:00Z")), 20700);
    EXPECT_EQ(in("America/New_York").secondsFromUTC(at("2026-01-01T00:00:00Z")), -18000);
}

TEST(Calendar, unknownZonesCountAsUTC) {
    EXPECT_EQ(in("Mars/Olympus_Mons").zoneID(), "UTC");
    EXPECT_EQ(in("").zoneID(), "UTC");
    EXPECT_EQ(in("Mars/Olympus_Mons").secondsFromUTC(at("2026-07-01T00:00Z")), 0);
}

TEST(Calendar, copiesAreIndependent) {
    Calendar copy = in("UTC");
    const Calendar original = in("Europe/Berlin");
    copy = original;
    EXPECT_EQ(copy.zoneID(), "Europe/Berlin");
    const Instant instant = at("2026-03-29T12:00+02:00");
    EXPECT_EQ(copy.startOfDay(instant), original.startOfDay(instant));
    const Calendar second(copy);
    copy = in("UTC");
    EXPECT_EQ(iso(second.startOfDay(instant)), "2026-03-28T23:00:00Z");
}

TEST(Calendar, currentFollowsTheEnvironment) {
    const ScopedEnvironment zone("TZ", "Asia/Kathmandu");
    const ScopedEnvironment locale("LC_ALL", "de_DE.UTF-8");
    const Calendar calendar = Calendar::current();
    EXPECT_EQ(calendar.zoneID(), "Asia/Kathmandu");
    const auto monday = calendar.interval(week, at("2026-03-01T12:00+05:45"));
    ASSERT_TRUE(monday);
    EXPECT_EQ(iso(monday->start), iso(at("2026-02-23T00:00+05:45")));
}

}  // namespace
}  // namespace elmworth
