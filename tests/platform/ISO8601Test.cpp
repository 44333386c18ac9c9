// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/ISO8601.h"

#include <gtest/gtest.h>

#include <random>

#include "support/Instants.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;
using test::iso;
using test::rowName;

TEST(ISO8601, anInstantIsWrittenInUTCWithWholeSecondsRoundedDown) {
    EXPECT_EQ(formatISO8601(at("2026-03-01T09:30Z")), "2026-03-01T09:30:00Z");
    EXPECT_EQ(formatISO8601(at("2026-03-01T09:30Z") + 999999us), "2026-03-01T09:30:00Z");
    EXPECT_EQ(formatISO8601(at("2026-03-01T09:30Z") - 1us), "2026-03-01T09:29:59Z");
    EXPECT_EQ(formatISO8601(Instant{} - 1us), "1969-12-31T23:59:59Z");
}

TEST(ISO8601, anInstantIsWrittenWithAnOffset) {
    const Instant instant = at("2026-03-01T23:30Z");
    EXPECT_EQ(formatISO8601(instant, 3600), "2026-03-02T00:30:00+01:00");
    EXPECT_EQ(formatISO8601(instant, -12600), "2026-03-01T20:00:00-03:30");
    EXPECT_EQ(formatISO8601(instant, 0), "2026-03-01T23:30:00+00:00");
}

TEST(ISO8601, anOffsetWithSecondsStillMeansTheSameInstant) {
    const Instant instant = at("1880-01-01T12:00Z");
    for (const int offset : {3208, -17762, -30})  // local mean times of old
        EXPECT_EQ(parseISO8601(formatISO8601(instant, offset)), instant) << offset;
}

struct AcceptedRow {
    const char* name;
    const char* text;
    const char* instant;
};

class ISO8601Accepted : public testing::TestWithParam<AcceptedRow> {};

TEST_P(ISO8601Accepted, isRead) {
    const auto instant = parseISO8601(GetParam().text);
    ASSERT_TRUE(instant);
    EXPECT_EQ(iso(*instant), GetParam().instant);
}

INSTANTIATE_TEST_SUITE_P(
    , ISO8601Accepted,
    testing::Values(
        AcceptedRow{"UTC", "2026-03-01T09:30:15Z", "2026-03-01T09:30:15Z"},
        AcceptedRow{"East", "2026-03-01T00:30:00+01:00", "2026-02-28T23:30:00Z"},
        AcceptedRow{"West", "2026-12-31T20:00:00-04:30", "2027-01-01T00:30:00Z"},
        AcceptedRow{"NoOffsetInDigits", "2026-03-01T09:30:15+00:00", "2026-03-01T09:30:15Z"},
        AcceptedRow{"LeapDay", "2028-02-29T23:59:59Z", "2028-02-29T23:59:59Z"},
        AcceptedRow{"LongAgo", "0001-01-01T00:00:00Z", "0001-01-01T00:00:00Z"},
        AcceptedRow{"TheFirstInstant", "0000-01-01T23:59:00+23:59", "0000-01-01T00:00:00Z"},
        AcceptedRow{"TheLastYear", "9999-12-31T23:59:59Z", "9999-12-31T23:59:59Z"}),
    rowName);

struct RefusedRow {
    const char* name;
    const char* text;
};

class ISO8601Refused : public testing::TestWithParam<RefusedRow> {};

TEST_P(ISO8601Refused, isAbsent) {
    EXPECT_EQ(parseISO8601(GetParam().text), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    , ISO8601Refused,
    testing::Values(
        RefusedRow{"Empty", ""}, RefusedRow{"DateAlone", "2026-03-01"},
        RefusedRow{"NoOffset", "2026-03-01T09:30:15"}, RefusedRow{"NoSeconds", "2026-03-01T09:30Z"},
        RefusedRow{"Fraction", "2026-03-01T09:30:15.5Z"},
        RefusedRow{"SmallLetters", "2026-03-01t09:30:15z"},
        RefusedRow{"BlankForT", "2026-03-01 09:30:15Z"},
        RefusedRow{"BlankBehind", "2026-03-01T09:30:15Z "},
        RefusedRow{"BlankBefore", " 2026-03-01T09:30:15Z"},
        RefusedRow{"OffsetOfHours", "2026-03-01T09:30:15+01"},
        RefusedRow{"OffsetWithoutColon", "2026-03-01T09:30:15+0100"},
        RefusedRow{"OffsetOfADay", "2026-03-01T09:30:15+24:00"},
        RefusedRow{"OffsetMinutes", "2026-03-01T09:30:15+01:60"},
        RefusedRow{"OffsetInLetters", "2026-03-01T09:30:15+aa:00"},
        RefusedRow{"April31", "2026-04-31T09:30:15Z"},
        RefusedRow{"NoLeapYear", "2026-02-29T09:30:15Z"},
        RefusedRow{"Month0", "2026-00-01T09:30:15Z"}, RefusedRow{"Month13", "2026-13-01T09:30:15Z"},
        RefusedRow{"Day0", "2026-03-00T09:30:15Z"}, RefusedRow{"Hour24", "2026-03-01T24:00:00Z"},
        RefusedRow{"Minute60", "2026-03-01T09:60:00Z"},
        RefusedRow{"LeapSecond", "2026-12-31T23:59:60Z"},
        RefusedRow{"SignInANumber", "2026-03-01T+9:30:15Z"},
        RefusedRow{"FiveDigitYear", "12026-03-01T09:30:15Z"},
        RefusedRow{"BeforeTheFirstYear", "0000-01-01T00:00:00+00:01"},
        RefusedRow{"BehindTheLastYear", "9999-12-31T23:59:00-00:01"},
        RefusedRow{"Slashes", "2026/03/01T09:30:15Z"}),
    rowName);

TEST(ISO8601, whatIsWrittenIsRead) {
    std::mt19937_64 random(20260301);
    std::uniform_int_distribution<std::int64_t> seconds(-62'000'000'000, 253'000'000'000);
    std::uniform_int_distribution<int> offsets(-14 * 60, 14 * 60);
    for (int i = 0; i < 20'000; ++i) {
        const Instant instant{std::chrono::seconds(seconds(random))};
        ASSERT_EQ(parseISO8601(formatISO8601(instant)), instant);
        ASSERT_EQ(parseISO8601(formatISO8601(instant, offsets(random) * 60)), instant);
    }
}

}  // namespace
}  // namespace elmworth
