// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/DailyStacks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "screens/timesheet/Listed.h"
#include "support/DaySlices.h"

namespace elmworth {
namespace {

using test::at;
using test::clientNamed;
using test::listed;
using test::moved;
using test::projectNamed;
using test::splitByDay;

const Calendar utc(Locale("en_US"), "UTC");
const DateInterval week{at("2026-03-02T00:00Z"), at("2026-03-09T00:00Z")};
const Instant noon = at("2026-03-04T12:00Z");

std::vector<DailyBar> barsOf(const std::vector<TimesheetEntry>& entries) {
    return dailyBars(entries, daysOf(week, utc), noon, utc);
}

TEST(DailyBars, ofNothingAreNone) {
    EXPECT_TRUE(barsOf({}).empty());
    EXPECT_TRUE(colorScale({}).empty());
}

TEST(DailyBars, anEntryOverMidnightCountsOnBothDays) {
    const auto bars =
        barsOf({listed(projectNamed("Web"), "2026-03-03T22:00Z", "2026-03-04T02:00Z")});
    const std::vector<DailyBar> expected{{at("2026-03-03T00:00Z"), "Web", "#4F7CFF", 2},
                                         {at("2026-03-04T00:00Z"), "Web", "#4F7CFF", 2}};
    EXPECT_EQ(bars, expected);
}

TEST(DailyBars, entriesOfADayAndProjectAddUp) {
    const auto web = projectNamed("Web");
    const auto bars = barsOf({listed(web, "2026-03-03T08:00Z", "2026-03-03T09:00Z"),
                              listed(web, "2026-03-03T10:00Z", "2026-03-03T10:30Z")});
    ASSERT_EQ(bars.size(), 1U);
    EXPECT_EQ(bars[0].hours, 1.5);
}

TEST(DailyBars, entriesWithoutAProjectStackInGray) {
    const auto bars = barsOf({listed(nullptr, "2026-03-03T08:00Z", "2026-03-03T09:00Z"),
                              listed(nullptr, "2026-03-03T10:00Z", "2026-03-03T11:00Z")});
    const std::vector<DailyBar> expected{{at("2026-03-03T00:00Z"), "—", "#999999", 2}};
    EXPECT_EQ(bars, expected);
}

TEST(DailyBars, aRunningEntryCountsUpToNow) {
    const auto bars = barsOf({listed(projectNamed("Web"), "2026-03-04T11:30Z", "")});
    ASSERT_EQ(bars.size(), 1U);
    EXPECT_EQ(bars[0].hours, 0.5);
}

TEST(DailyBars, reversedAndEmptyEntriesCountAsNothing) {
    const auto web = projectNamed("Web");
    EXPECT_TRUE(barsOf({listed(web, "2026-03-03T09:00Z", "2026-03-03T08:00Z"),
                        listed(web, "2026-03-03T09:00Z", "2026-03-03T09:00Z"),
                        listed(web, "2026-03-05T09:00Z", "")})
                    .empty());
}

TEST(DailyBars, daysOutsideThePeriodAreLeftOut) {
    const auto bars =
        barsOf({listed(projectNamed("Web"), "2026-03-01T23:00Z", "2026-03-02T01:00Z"),
                listed(projectNamed("App"), "2026-03-08T23:00Z", "2026-03-09T01:00Z")});
    const std::vector<DailyBar> expected{{at("2026-03-08T00:00Z"), "App", "#4F7CFF", 1},
                                         {at("2026-03-02T00:00Z"), "Web", "#4F7CFF", 1}};
    EXPECT_EQ(bars, expected);
}

TEST(DailyBars, anEntryOfThirtyYearsFillsEachDayOfThePeriod) {
    const auto bars =
        barsOf({listed(projectNamed("Web"), "2000-01-01T00:00Z", "2030-01-01T00:00Z")});
    ASSERT_EQ(bars.size(), 7U);
    for (const auto& bar : bars) EXPECT_EQ(bar.hours, 24);
}

TEST(DailyBars, aProjectWhoseNameIsUniqueShowsTheBareName) {
    const auto bars = barsOf({listed(projectNamed("Web", clientNamed("Acme")), "2026-03-03T08:00Z",
                                     "2026-03-03T09:00Z")});
    EXPECT_EQ(bars.at(0).project, "Web");
}

TEST(DailyBars, projectsOfOneNameCarryTheirClients) {
    const auto bars = barsOf({
        listed(projectNamed("Web", clientNamed("Globex")), "2026-03-03T08:00Z",
               "2026-03-03T09:00Z"),
        listed(projectNamed("Web", clientNamed("Acme")), "2026-03-03T09:00Z", "2026-03-03T10:00Z"),
        listed(projectNamed("Web"), "2026-03-03T10:00Z", "2026-03-03T11:00Z"),
        listed(projectNamed("App"), "2026-03-03T11:00Z", "2026-03-03T12:00Z"),
    });
    std::vector<std::string> labels;
    for (const auto& bar : bars) labels.push_back(bar.project);
    EXPECT_EQ(labels, (std::vector<std::string>{"App", "Web — ", "Web — Acme", "Web — Globex"}));
}

TEST(DailyBars, aNameCountsAlsoWhenItsProjectHasNoTimeInThePeriod) {
    const auto bars = barsOf({
        listed(projectNamed("Web", clientNamed("Acme")), "2026-03-03T08:00Z", "2026-03-03T09:00Z"),
        listed(projectNamed("Web"), "2026-03-03T09:00Z", "2026-03-03T09:00Z"),
    });
    ASSERT_EQ(bars.size(), 1U);
    EXPECT_EQ(bars[0].project, "Web — Acme");
}

TEST(DailyBars, standInTheOrderOfTheirLabelsBytes) {
    const auto bars =
        barsOf({listed(projectNamed("Ärzte"), "2026-03-03T08:00Z", "2026-03-03T09:00Z"),
                listed(projectNamed("app"), "2026-03-03T08:00Z", "2026-03-03T09:00Z"),
                listed(projectNamed("Web"), "2026-03-03T08:00Z", "2026-03-03T09:00Z")});
    EXPECT_EQ(bars[0].project, "Web");
    EXPECT_EQ(bars[1].project, "app");
    EXPECT_EQ(bars[2].project, "Ärzte");
}

TEST(DailyBars, projectsAlikeInNameAndClientKeepTheirColorsApart) {
    const auto acme = clientNamed("Acme");
    const auto bars = barsOf(
        {listed(projectNamed("Web", acme, "#00FF00"), "2026-03-03T08:00Z", "2026-03-03T09:00Z"),
         listed(projectNamed("Web", acme, "#FF0000"), "2026-03-03T09:00Z", "2026-03-03T11:00Z")});
    ASSERT_EQ(bars.size(), 2U);
    const auto scale = colorScale(bars);
    EXPECT_EQ(scale, (std::vector<DailySeries>{{"Web — Acme", "#00FF00"}}));
}

TEST(DailyBars, aColorThatIsNoneIsHandedOnAsItIs) {
    const auto bars = barsOf(
        {listed(projectNamed("Web", nullptr, "mauve"), "2026-03-03T08:00Z", "2026-03-03T09:00Z")});
    EXPECT_EQ(bars.at(0).colorHex, "mauve");
}

struct ClockChange {
    const char* zone;
    const char* start;
    const char* end;
    double hours;
};

TEST(DailyBars, aDayOfAClockChangeHasItsOwnNumberOfHours) {
    for (const auto& [zone, start, end, hours] : {
             ClockChange{"Europe/Berlin", "2026-03-28T23:00Z", "2026-03-29T22:00Z", 23},
             ClockChange{"Europe/Berlin", "2026-10-24T22:00Z", "2026-10-25T23:00Z", 25},
             ClockChange{"America/New_York", "2026-03-08T05:00Z", "2026-03-09T04:00Z", 23},
             ClockChange{"America/New_York", "2026-11-01T04:00Z", "2026-11-02T05:00Z", 25},
             ClockChange{"Australia/Lord_Howe", "2026-04-04T13:00Z", "2026-04-05T13:30Z", 24.5},
         }) {
        const Calendar calendar(Locale("en_US"), zone);
        const DateInterval range{at(start) - std::chrono::days(3), at(end) + std::chrono::days(3)};
        const auto bars = dailyBars(std::vector{listed(projectNamed("Web"), start, end)},
                                    daysOf(range, calendar), noon, calendar);
        ASSERT_EQ(bars.size(), 1U) << zone << start;
        EXPECT_EQ(bars[0].day, at(start)) << zone;
        EXPECT_EQ(bars[0].hours, hours) << zone;
        EXPECT_EQ(daysOf(range, calendar).size(), 7U) << zone;
    }
}

/// The bars as they are defined: each entry cut by day.
std::vector<DailyBar> naive(const std::vector<TimesheetEntry>& entries, const DateInterval& range,
                            Instant now, const Calendar& calendar) {
    std::map<std::tuple<std::string, Instant, std::string>, double> hours;
    for (const auto& entry : entries) {
        for (const auto& slice : splitByDay(entry.start, entry.end.value_or(now), calendar)) {
            if (slice.day < range.start || slice.day >= range.end) continue;
            hours[{entry.project->name, slice.day, entry.project->colorHex}] +=
                slice.seconds / 3600.0;
        }
    }
    std::vector<DailyBar> bars;
    for (const auto& [key, sum] : hours) {
        bars.push_back({std::get<1>(key), std::get<0>(key), std::get<2>(key), sum});
    }
    return bars;
}

TEST(DailyBars, equalTheEntriesCutByDayInZonesOfAllKinds) {
    std::mt19937 random(11);
    const auto pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    const std::vector projects{projectNamed("A"), projectNamed("B", nullptr, "#00FF00"),
                               projectNamed("C", nullptr, "")};
    for (const char* zone : {"UTC", "Europe/Berlin", "America/Sao_Paulo", "Africa/Cairo"}) {
        const Calendar calendar(Locale("en_US"), zone);
        for (int round = 0; round < 40; ++round) {
            const Instant start = moved(at("2015-01-01T00:00Z"), pick(0, 200'000'000));
            const auto range = customInterval(start, moved(start, pick(0, 32) * 86400.0), calendar);
            std::vector<TimesheetEntry> entries;
            for (int i = pick(0, 40); i > 0; --i) {
                TimesheetEntry entry;
                entry.start = moved(range.start, pick(-200'000, 3'000'000));
                entry.end = moved(entry.start, pick(-1000, 200'000));
                entry.project = projects[static_cast<std::size_t>(pick(0, 2))];
                entries.push_back(entry);
            }
            const auto bars = dailyBars(entries, daysOf(range, calendar), noon, calendar);
            ASSERT_EQ(bars, naive(entries, range, noon, calendar)) << zone << round;
            double clipped = 0;
            for (const auto& entry : entries) {
                clipped += std::max(0.0, secondsBetween(std::max(entry.start, range.start),
                                                        std::min(*entry.end, range.end)));
            }
            double hours = 0;
            for (const auto& bar : bars) hours += bar.hours;
            ASSERT_NEAR(hours, clipped / 3600, 1e-6) << zone << round;
        }
    }
}

TEST(DailyBars, keysAreEqualByAllTheirFields) {
    const DayKey key{noon, "Web", "#000000"};
    const DayKey same = key;
    EXPECT_EQ(std::hash<DayKey>{}(key), std::hash<DayKey>{}(same));
    EXPECT_EQ(key, same);
    EXPECT_FALSE(key == (DayKey{week.start, "Web", "#000000"}));
    EXPECT_FALSE(key == (DayKey{noon, "App", "#000000"}));
    EXPECT_FALSE(key == (DayKey{noon, "Web", "#000001"}));
}

}  // namespace
}  // namespace elmworth
