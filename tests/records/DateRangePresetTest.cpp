// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/DateRangePreset.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "support/DaySlices.h"
#include "support/Instants.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::at;
using test::iso;
using test::rowName;
using test::splitByDay;
using test::textName;

Calendar in(const char* zone, const char* locale = "en_US") {
    return Calendar(Locale(locale), zone);
}

void expectInterval(const std::optional<DateInterval>& actual, const char* start, const char* end) {
    ASSERT_TRUE(actual);
    EXPECT_EQ(iso(actual->start), iso(at(start)));
    EXPECT_EQ(iso(actual->end), iso(at(end)));
}

struct PresetRow {
    const char* name;
    DateRangePreset preset;
    const char* zone;
    const char* now;
    const char* start;
    const char* end;
};

void PrintTo(const PresetRow& row, std::ostream* out) {
    *out << row.name;
}

class PresetInterval : public testing::TestWithParam<PresetRow> {};

TEST_P(PresetInterval, isThePeriodThatHoldsNowOrTheOneBefore) {
    const auto& row = GetParam();
    expectInterval(interval(row.preset, at(row.now), in(row.zone)), row.start, row.end);
}

using P = DateRangePreset;

// clang-format off
INSTANTIATE_TEST_SUITE_P(Row, PresetInterval, testing::ValuesIn(std::vector<PresetRow>{
    {"Today", P::today, "UTC", "2026-03-04T12:00Z", "2026-03-04T00:00Z", "2026-03-05T00:00Z"},
    {"TodayInAnotherZone", P::today, "America/New_York", "2026-03-04T03:00Z", "2026-03-03T00:00-05:00", "2026-03-04T00:00-05:00"},
    {"Yesterday", P::yesterday, "UTC", "2026-03-01T12:00Z", "2026-02-28T00:00Z", "2026-03-01T00:00Z"},
    {"YesterdayOf23Hours", P::yesterday, "Europe/Berlin", "2026-03-30T12:00+02:00", "2026-03-29T00:00+01:00", "2026-03-30T00:00+02:00"},
    {"YesterdayFromATimeThatItLacks", P::yesterday, "Europe/Berlin", "2026-03-30T02:30+02:00", "2026-03-29T00:00+01:00", "2026-03-30T00:00+02:00"},
    {"YesterdayBehindASkippedDay", P::yesterday, "Pacific/Apia", "2011-12-31T10:00+14:00", "2011-12-29T00:00-10:00", "2011-12-31T00:00+14:00"},
    {"ThisWeek", P::thisWeek, "UTC", "2026-03-04T12:00Z", "2026-03-01T00:00Z", "2026-03-08T00:00Z"},
    {"LastWeek", P::lastWeek, "UTC", "2026-03-04T12:00Z", "2026-02-22T00:00Z", "2026-03-01T00:00Z"},
    {"LastWeekOverTheNewYear", P::lastWeek, "UTC", "2026-01-05T12:00Z", "2025-12-28T00:00Z", "2026-01-04T00:00Z"},
    {"ThisMonth", P::thisMonth, "UTC", "2026-03-31T23:59:59Z", "2026-03-01T00:00Z", "2026-04-01T00:00Z"},
    {"LastMonth", P::lastMonth, "UTC", "2026-01-15T12:00Z", "2025-12-01T00:00Z", "2026-01-01T00:00Z"},
    {"ThisYear", P::thisYear, "Europe/Berlin", "2026-03-04T12:00Z", "2026-01-01T00:00+01:00", "2027-01-01T00:00+01:00"},
}), rowName);
// clang-format on

TEST(DateRangePreset, aWeekEndsOrBeginsOnSundayAsTheCalendarHasIt) {
    const Instant sunday = at("2026-03-01T12:00Z");
    expectInterval(interval(P::thisWeek, sunday, in("UTC", "en_US")), "2026-03-01T00:00Z",
                   "2026-03-08T00:00Z");
    expectInterval(interval(P::thisWeek, sunday, in("UTC", "de_DE")), "2026-02-23T00:00Z",
                   "2026-03-02T00:00Z");
}

TEST(DateRangePreset, lastMonthOnMarch31IsFebruary) {
    expectInterval(interval(P::lastMonth, at("2026-03-31T12:00Z"), in("UTC")), "2026-02-01T00:00Z",
                   "2026-03-01T00:00Z");
}

TEST(DateRangePreset, customHasNoIntervalOfItsOwn) {
    EXPECT_EQ(interval(P::custom, at("2026-03-31T12:00Z"), in("UTC")), std::nullopt);
}

TEST(DateRangePreset, beyondTheCalendarThereIsNoInterval) {
    EXPECT_EQ(interval(P::thisYear, Instant::max(), in("UTC")), std::nullopt);
    EXPECT_EQ(interval(P::lastMonth, Instant::min(), in("UTC")), std::nullopt);
}

TEST(DateRangePreset, rawValuesAreTheLabelsInMenuOrder) {
    const std::vector<std::string_view> labels{"Today",      "Yesterday",  "This Week", "Last Week",
                                               "This Month", "Last Month", "This Year", "Custom"};
    ASSERT_EQ(allDateRangePresets.size(), labels.size());
    for (std::size_t i = 0; i < labels.size(); ++i) {
        EXPECT_EQ(rawValue(allDateRangePresets[i]), labels[i]);
        EXPECT_EQ(dateRangePresetFromRawValue(labels[i]), allDateRangePresets[i]);
    }
}

TEST(DateRangePreset, anUnknownRawValueIsAbsent) {
    for (const char* raw : {"", "today", "This  Week", "Fortnight", "Custom "})
        EXPECT_EQ(dateRangePresetFromRawValue(raw), std::nullopt) << raw;
}

TEST(CustomInterval, isTheSameForSwappedDates) {
    const Calendar calendar = in("Europe/Berlin");
    const Instant a = at("2026-03-03T18:00+01:00");
    const Instant b = at("2026-03-29T09:00+02:00");
    EXPECT_EQ(customInterval(a, b, calendar), customInterval(b, a, calendar));
    expectInterval(customInterval(b, a, calendar), "2026-03-03T00:00+01:00",
                   "2026-03-30T00:00+02:00");
}

TEST(CustomInterval, ofOneDayIsThatWholeDay) {
    expectInterval(customInterval(at("2026-03-03T18:00Z"), at("2026-03-03T09:00Z"), in("UTC")),
                   "2026-03-03T00:00Z", "2026-03-04T00:00Z");
}

TEST(CustomInterval, endsWhereTheDayBehindAMissingMidnightStarts) {
    const Instant day = at("2018-11-04T12:00-02:00");
    expectInterval(customInterval(day, day, in("America/Sao_Paulo")), "2018-11-04T01:00-02:00",
                   "2018-11-05T00:00-02:00");
}

TEST(CustomIntervalDeathTest, aDateWithoutANextDayStopsTheProgram) {
    EXPECT_EXIT((void)customInterval(Instant::max(), Instant::max(), in("UTC")),
                testing::KilledBySignal(SIGABRT), "");
}

struct CutRow {
    const char* name;
    const char* zone;
    const char* start;
    const char* end;
    std::vector<std::pair<const char*, double>> days;  ///< their starts and seconds
};

class CutByDay : public testing::TestWithParam<CutRow> {};

TEST_P(CutByDay, countsOnTheDaysThatItTouches) {
    const auto& row = GetParam();
    std::vector<std::pair<std::string, double>> expected;
    for (const auto& [day, seconds] : row.days) expected.emplace_back(iso(at(day)), seconds);
    std::vector<std::pair<std::string, double>> found;
    for (const auto& slice : splitByDay(at(row.start), at(row.end), in(row.zone)))
        found.emplace_back(iso(slice.day), slice.seconds);
    EXPECT_EQ(found, expected);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Row, CutByDay, testing::ValuesIn(std::vector<CutRow>{
    {"OverMidnight", "UTC", "2026-03-03T23:30Z", "2026-03-04T00:30Z", {{"2026-03-03T00:00Z", 1800}, {"2026-03-04T00:00Z", 1800}}},
    {"WithinOneDay", "UTC", "2026-03-03T09:00Z", "2026-03-03T10:30Z", {{"2026-03-03T00:00Z", 5400}}},
    {"Empty", "UTC", "2026-03-03T09:00Z", "2026-03-03T09:00Z", {}},
    {"Backward", "UTC", "2026-03-03T09:00Z", "2026-03-01T09:00Z", {}},
    {"AnEndAtMidnightTouchesNoFurtherDay", "UTC", "2026-03-03T00:00Z", "2026-03-04T00:00Z", {{"2026-03-03T00:00Z", 86400}}},
    {"ADayOf23HoursCountsWhole", "Europe/Berlin", "2026-03-29T00:00+01:00", "2026-03-30T01:00+02:00", {{"2026-03-29T00:00+01:00", 23 * 3600}, {"2026-03-30T00:00+02:00", 3600}}},
    {"ADayOf25HoursCountsWhole", "Europe/Berlin", "2026-10-25T00:00+02:00", "2026-10-26T01:00+01:00", {{"2026-10-25T00:00+02:00", 25 * 3600}, {"2026-10-26T00:00+01:00", 3600}}},
    {"ADayWithoutMidnightShiftsNoDaysBehindIt", "America/Sao_Paulo", "2018-11-03T23:00-03:00", "2018-11-05T01:00-02:00", {{"2018-11-03T00:00-03:00", 3600}, {"2018-11-04T01:00-02:00", 23 * 3600}, {"2018-11-05T00:00-02:00", 3600}}},
    {"ASkippedDayHasNone", "Pacific/Apia", "2011-12-29T23:00-10:00", "2011-12-31T02:00+14:00", {{"2011-12-29T00:00-10:00", 3600}, {"2011-12-31T00:00+14:00", 7200}}},
    {"AnHourRepeatedBehindMidnightCountsOnTheNextDay", "America/St_Johns", "2010-11-06T23:30-03:30", "2010-11-07T01:30-03:30", {{"2010-11-07T00:00-02:30", 7200}}},
}), rowName);
// clang-format on

TEST(CutByDayExactly, fractionsOfASecondAreKept) {
    const Instant start = at("2026-03-03T23:59:59Z") + std::chrono::microseconds(250'000);
    const auto found = splitByDay(start, at("2026-03-04T00:00:01Z"), in("UTC"));
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].seconds, 0.75);
    EXPECT_EQ(found[1].seconds, 1);
}

class PeriodsOfZone : public testing::TestWithParam<const char*> {
 protected:
    Instant someInstant() {
        std::uniform_int_distribution<std::int64_t> microseconds(
            at("2005-01-01T00:00Z").time_since_epoch().count(),
            at("2030-01-01T00:00Z").time_since_epoch().count());
        return Instant(std::chrono::microseconds(microseconds(random_)));
    }

    Calendar calendar_ = in(GetParam());
    std::mt19937_64 random_{20260301};
};

TEST_P(PeriodsOfZone, cuttingByDayConservesTheSeconds) {
    std::uniform_int_distribution<std::int64_t> length(1, 40LL * 24 * 3600 * 1'000'000);
    for (int i = 0; i < 300; ++i) {
        const Instant start = someInstant();
        const Instant end = start + std::chrono::microseconds(length(random_));
        const auto found = splitByDay(start, end, calendar_);
        const double sum = std::accumulate(
            found.begin(), found.end(), 0.0,
            [](double seconds, const auto& slice) { return seconds + slice.seconds; });
        ASSERT_NEAR(sum, secondsBetween(start, end), 1e-6) << iso(start);
        for (const auto& slice : found) {
            ASSERT_GT(slice.seconds, 0);
            ASSERT_EQ(iso(calendar_.startOfDay(slice.day)), iso(slice.day));
        }
    }
}

TEST_P(PeriodsOfZone, customIntervalIsSymmetricAndHoldsBothDates) {
    for (int i = 0; i < 300; ++i) {
        const Instant a = someInstant();
        const Instant b = someInstant();
        const DateInterval span = customInterval(a, b, calendar_);
        ASSERT_EQ(span, customInterval(b, a, calendar_));
        ASSERT_LE(span.start, std::min(a, b));
        ASSERT_GT(span.end, std::max(a, b));
    }
}

INSTANTIATE_TEST_SUITE_P(Zone, PeriodsOfZone,
                         testing::Values("UTC", "Europe/Berlin", "America/New_York",
                                         "America/Sao_Paulo", "America/Havana", "Pacific/Apia",
                                         "Australia/Lord_Howe", "Asia/Kathmandu", "Asia/Tehran"),
                         textName);

}  // namespace
}  // namespace elmworth
