// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/TimeArgument.h"

#include "command/CommandError.h"
#include "command/CommandTest.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::at;
using test::iso;
using test::rowName;

class TimeArguments : public test::CommandTest {
 protected:
    CommandEnvironment environment_{library_.context(),      history_,        timer_,  profiles_,
                                    [this] { return now_; }, Locale("en_US"), berlin_, {}};
};

struct TimeRow {
    const char* name;
    const char* text;
    const char* instant;  ///< null: refused
};

class TimeArgumentRows : public TimeArguments, public testing::WithParamInterface<TimeRow> {};

TEST_P(TimeArgumentRows, isReadOrRefusedAsWrongUsage) {
    const auto& row = GetParam();
    if (row.instant) {
        EXPECT_EQ(iso(parseTime(row.text, environment_)), iso(at(row.instant)));
        return;
    }
    try {
        (void)parseTime(row.text, environment_);
        FAIL() << "read " << row.text;
    } catch (const CommandError& error) {
        EXPECT_EQ(error.kind(), CommandError::Kind::usage);
        EXPECT_EQ(std::string(error.what()).find("“" + std::string(row.text) + "” is no time."),
                  0U);
    }
}

INSTANTIATE_TEST_SUITE_P(
    , TimeArgumentRows,
    testing::Values(
        TimeRow{"ClockToday", "09:30", "2026-03-31T09:30+02:00"},
        TimeRow{"Midnight", "00:00", "2026-03-31T00:00+02:00"},
        TimeRow{"Minutes", "2026-03-01T14:30", "2026-03-01T14:30+01:00"},
        TimeRow{"Seconds", "2026-03-01T14:30:05", "2026-03-01T14:30:05+01:00"},
        TimeRow{"Offset", "2026-03-01T14:30:00-05:00", "2026-03-01T14:30-05:00"},
        TimeRow{"OffsetWithoutSeconds", "2026-03-01T14:30-05:00", "2026-03-01T14:30-05:00"},
        TimeRow{"UTC", "2026-03-01T14:30:00Z", "2026-03-01T14:30Z"},
        TimeRow{"UTCWithoutSeconds", "2026-03-01T14:30Z", "2026-03-01T14:30Z"},
        // Clocks went from 2:00 to 3:00 on March 29, and went back from 3:00 on October 26.
        TimeRow{"SkippedHour", "2026-03-29T02:30", "2026-03-29T03:00+02:00"},
        TimeRow{"RepeatedHour", "2025-10-26T02:30", "2025-10-26T02:30+02:00"},
        TimeRow{"OneDigitHour", "9:30", "2026-03-31T09:30+02:00"}, TimeRow{"Empty", "", nullptr},
        TimeRow{"OneDigitMinute", "9:3", nullptr}, TimeRow{"NoColon", "0930", nullptr},
        TimeRow{"SignedHour", "-9:30", nullptr}, TimeRow{"HourTwentyFour", "24:00", nullptr},
        TimeRow{"MinuteSixty", "09:60", nullptr}, TimeRow{"DayAlone", "2026-03-01", nullptr},
        TimeRow{"NoSuchDay", "2026-02-30T10:00", nullptr},
        TimeRow{"BlankForT", "2026-03-01 14:30", nullptr},
        TimeRow{"Fraction", "2026-03-01T14:30:00.5Z", nullptr},
        // Berlin's local time ran 53 minutes and 28 seconds ahead of UTC before 1893.
        TimeRow{"FirstThatCanBeStored", "0001-01-01T00:53:28", "0001-01-01T00:00Z"},
        TimeRow{"BeforeTheFirst", "0000-12-31T23:59:59", nullptr},
        TimeRow{"LastThatCanBeStored", "9999-12-31T23:59", "9999-12-31T22:59Z"},
        TimeRow{"BehindTheLast", "9999-12-31T23:59-05:00", nullptr},
        TimeRow{"Afternoon", "2:30PM", nullptr}),
    rowName);

TEST_F(TimeArguments, todayIsTheDayInTheZoneOfTheUser) {
    now_ = at("2026-03-30T23:30Z");  // already the 31st in Berlin
    EXPECT_EQ(parseTime("01:00", environment_), at("2026-03-31T01:00+02:00"));
}

TEST_F(TimeArguments, aDayBeginsAtItsLocalMidnight) {
    EXPECT_EQ(parseDay("2026-03-29", environment_), at("2026-03-29T00:00+01:00"));
    for (const char* text : {"", "29.03.2026", "2026-3-29", "2026-02-29", "2026-03-29T00:00"})
        EXPECT_THROW((void)parseDay(text, environment_), CommandError) << text;
}

TEST_F(TimeArguments, aDayThatBeginsBeforeAnyThatCanBeStoredIsNoDay) {
    EXPECT_THROW((void)parseDay("0000-01-01", environment_), CommandError);
    environment_.calendar = Calendar(Locale("en_US"), "America/New_York");
    EXPECT_THROW((void)parseTime("9999-12-31T23:59", environment_), CommandError);
}

TEST_F(TimeArguments, aDayThatTheZoneSkippedIsNoDay) {
    environment_.calendar = Calendar(Locale("en_US"), "Pacific/Apia");
    EXPECT_THROW((void)parseDay("2011-12-30", environment_), CommandError);
}

TEST_F(TimeArguments, daysAreGregorianWhateverTheCalendarOfTheUser) {
    environment_.calendar = Calendar(Locale("th_TH"), "Europe/Berlin");
    EXPECT_EQ(parseDay("2026-03-01", environment_), at("2026-03-01T00:00+01:00"));
}

TEST_F(TimeArguments, aPeriodIsNamedWithoutRegardToCase) {
    const DateInterval february{at("2026-02-01T00:00+01:00"), at("2026-03-01T00:00+01:00")};
    for (const char* name : {"Last Month", "last month", "LAST MONTH"})
        EXPECT_EQ((PeriodArguments{name, "", ""}.interval(environment_)), february) << name;
}

TEST_F(TimeArguments, aPeriodOfDaysHoldsBothOfThemInEitherOrder) {
    const DateInterval march{at("2026-03-01T00:00+01:00"), at("2026-04-01T00:00+02:00")};
    EXPECT_EQ((PeriodArguments{"", "2026-03-01", "2026-03-31"}.interval(environment_)), march);
    EXPECT_EQ((PeriodArguments{"", "2026-03-31", "2026-03-01"}.interval(environment_)), march);
}

}  // namespace
}  // namespace elmworth
