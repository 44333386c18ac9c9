// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include "support/LibraryTest.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;
using Names = std::vector<std::string>;

class TimerServiceQuestions : public test::LibraryTest {
 protected:
    Ref<Project> project(const std::string& name) {
        return timer.library.addProject(name, nullptr);
    }
    /// `count` entries of five minutes, one in each hour from `first` on.
    void addHourly(const Ref<Project>& project, Instant first, int count) {
        for (int i = 0; i < count; ++i) {
            const Instant start = first + std::chrono::hours(i);
            timer.library.addEntry(project, start, start + 5min);
        }
    }
    [[nodiscard]] Names recent(std::size_t limit) {
        Names names;
        for (const auto& found : service().recentProjects(limit)) names.push_back(found->name);
        return names;
    }

    const Instant yesterday = at("2026-03-01T09:00Z");
    const Instant longAgo = at("2025-01-01T09:00Z");
};

// --- recent projects -----------------------------------------------------------------------------

TEST_F(TimerServiceQuestions, recentProjectsStandInTheOrderOfTheirLastUse) {
    const auto first = project("A");
    const auto second = project("B");
    addHourly(second, yesterday, 2);
    addHourly(first, yesterday - 30min, 1);
    EXPECT_EQ(recent(6), (Names{"B", "A"}));
    service().start(first);
    EXPECT_EQ(recent(6), (Names{"A", "B"}));
    context().save();
    EXPECT_EQ(recent(6), (Names{"A", "B"}));
}

TEST_F(TimerServiceQuestions, projectsWithoutEntriesFollowByName) {
    project("item 10");
    project("\xC3\x84rzte");
    project("Item 9");
    const auto used = project("Zoo");
    addHourly(used, yesterday, 1);
    context().save();
    EXPECT_EQ(recent(6), (Names{"Zoo", "\xC3\x84rzte", "Item 9", "item 10"}));
    EXPECT_EQ(recent(2), (Names{"Zoo", "\xC3\x84rzte"}));
    EXPECT_EQ(recent(1), Names{"Zoo"});
    EXPECT_EQ(recent(0), Names{});
}

TEST_F(TimerServiceQuestions, archivedProjectsAndEntriesWithoutProjectAreNotRecent) {
    const auto archived = project("Old");
    archived->isArchived = true;
    project("Unused")->isArchived = true;
    addHourly(archived, yesterday, 1);
    addHourly(nullptr, yesterday, 1);
    EXPECT_EQ(recent(6), Names{});
}

TEST_F(TimerServiceQuestions, recentProjectsLookAtTheLatest200Entries) {
    project("Alpha");
    const auto busy = project("Busy");
    addHourly(project("Zoo"), longAgo, 1);
    addHourly(busy, longAgo + 24h, 199);
    context().save();
    EXPECT_EQ(recent(6), (Names{"Busy", "Zoo", "Alpha"}));
    addHourly(busy, yesterday, 1);
    EXPECT_EQ(recent(6), (Names{"Busy", "Alpha", "Zoo"}));
    context().save();
    EXPECT_EQ(recent(6), (Names{"Busy", "Alpha", "Zoo"}));
}

// --- the entry to continue -----------------------------------------------------------------------

TEST_F(TimerServiceQuestions, theEntryThatEndedLastIsContinuable) {
    const auto any = project("A");
    const auto endedLast = timer.library.addEntry(any, yesterday, yesterday + 5h);
    timer.library.addEntry(any, yesterday + 1h, yesterday + 2h);
    service().start(any);
    EXPECT_EQ(service().lastContinuableEntry(), endedLast);
}

TEST_F(TimerServiceQuestions, nothingIsContinuableAtFirst) {
    service().start(project("A"));
    EXPECT_FALSE(service().lastContinuableEntry());
}

TEST_F(TimerServiceQuestions, anEntryOfAnArchivedOrOfNoProjectIsNotContinuable) {
    const auto any = project("A");
    const auto archived = project("B");
    archived->isArchived = true;
    const auto continuable = timer.library.addEntry(any, yesterday, yesterday + 1h);
    timer.library.addEntry(archived, yesterday, yesterday + 2h);
    timer.library.addEntry(nullptr, yesterday, yesterday + 3h);
    EXPECT_EQ(service().lastContinuableEntry(), continuable);
}

TEST_F(TimerServiceQuestions, theEntryToContinueIsAmongTheLast20) {
    const auto continuable = timer.library.addEntry(project("A"), longAgo, longAgo + 1h);
    addHourly(nullptr, yesterday, 19);
    context().save();
    EXPECT_EQ(service().lastContinuableEntry(), continuable);
    addHourly(nullptr, yesterday - 24h, 1);
    EXPECT_FALSE(service().lastContinuableEntry());
    context().save();
    EXPECT_FALSE(service().lastContinuableEntry());
}

// --- a long run ----------------------------------------------------------------------------------

TEST_F(TimerServiceQuestions, aRunOfTenHoursIsLong) {
    EXPECT_FALSE(service().isLongRunning());
    service().start(project("A"));
    timer.setTime("18:59:59");
    EXPECT_FALSE(service().isLongRunning());
    timer.setTime("19:00");
    EXPECT_TRUE(service().isLongRunning());
    service().stop();
    EXPECT_FALSE(service().isLongRunning());
}

// --- totals --------------------------------------------------------------------------------------

TEST_F(TimerServiceQuestions, trackedSecondsCutsEntriesAtTheRange) {
    const auto from = yesterday;
    const auto to = from + 1h;
    timer.library.addEntry(nullptr, from - 10min, from + 10min);  // 10 minutes in it
    timer.library.addEntry(nullptr, from + 20min, from + 25min);  // all of 5
    timer.library.addEntry(nullptr, to - 3min, to + 3h);          // 3
    timer.library.addEntry(nullptr, from - 2h, from);
    timer.library.addEntry(nullptr, to, to + 1h);
    timer.library.addEntry(nullptr, from + 30min, from + 20min);  // reversed: nothing
    EXPECT_DOUBLE_EQ(service().trackedSeconds(from, to), 18 * 60);
    context().save();
    EXPECT_DOUBLE_EQ(service().trackedSeconds(from, to), 18 * 60);
}

TEST_F(TimerServiceQuestions, trackedSecondsLooksBackOneDayForFinishedEntries) {
    const auto from = yesterday;
    timer.library.addEntry(nullptr, from - 24h, from + 1min);
    EXPECT_DOUBLE_EQ(service().trackedSeconds(from, from + 1h), 60);
    timer.library.addEntry(nullptr, from - 24h - 1us, from + 30min);
    EXPECT_DOUBLE_EQ(service().trackedSeconds(from, from + 1h), 60);
}

TEST_F(TimerServiceQuestions, trackedSecondsCountsARunningEntryHoweverOld) {
    timer.library.addEntry(nullptr, longAgo, std::nullopt);
    EXPECT_DOUBLE_EQ(service().trackedSeconds(yesterday, yesterday + 1h), 3600);
    EXPECT_DOUBLE_EQ(service().trackedSeconds(timer.now - 1min, timer.now + 1h), 60);
}

TEST_F(TimerServiceQuestions, anEntryAcrossMidnightIsSplitThere) {
    timer.setClock("2026-03-01T23:00Z");
    service().start(project("A"));
    timer.setClock("2026-03-02T01:30Z");
    const auto midnight = at("2026-03-02T00:00Z");
    EXPECT_DOUBLE_EQ(service().trackedSeconds(midnight - 24h, midnight), 3600);
    EXPECT_DOUBLE_EQ(service().todaySeconds(), 1.5 * 3600);
}

struct Day {
    const char* name;
    const char* start;
    const char* end;
    double hours;
};
class DayInBerlin : public TimerServiceQuestions, public testing::WithParamInterface<Day> {};

TEST_P(DayInBerlin, isCountedFromMidnightToMidnight) {
    timer.calendar = Calendar(Locale("de_DE"), "Europe/Berlin");
    const auto start = at(GetParam().start);
    const auto end = at(GetParam().end);
    timer.library.addEntry(nullptr, start - 12h, end);
    timer.now = end - 1min;
    EXPECT_DOUBLE_EQ(service().todaySeconds(), GetParam().hours * 3600);
}

INSTANTIATE_TEST_SUITE_P(
    Days, DayInBerlin,
    testing::Values(Day{"ordinary", "2026-03-10T00:00+01:00", "2026-03-11T00:00+01:00", 24},
                    Day{"clocksGoForward", "2026-03-29T00:00+01:00", "2026-03-30T00:00+02:00", 23},
                    Day{"clocksGoBack", "2026-10-25T00:00+02:00", "2026-10-26T00:00+01:00", 25}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(TimerServiceQuestions, theWeekBeginsOnTheLocalesFirstWeekday) {
    timer.library.addEntry(nullptr, at("2026-03-01T10:00Z"), at("2026-03-01T11:00Z"));  // Sunday
    timer.library.addEntry(nullptr, at("2026-03-02T07:00Z"), at("2026-03-02T07:30Z"));
    EXPECT_DOUBLE_EQ(service().thisWeekSeconds(), 5400);
    timer.calendar = Calendar(Locale("de_DE"), "UTC");
    EXPECT_DOUBLE_EQ(service().thisWeekSeconds(), 1800);
}

TEST_F(TimerServiceQuestions, todayFollowsTheTimeZoneOfTheMoment) {
    timer.library.addEntry(nullptr, at("2026-03-01T23:30Z"), at("2026-03-02T00:30Z"));
    EXPECT_DOUBLE_EQ(service().todaySeconds(), 1800);
    timer.calendar = Calendar(Locale("en_US"), "Europe/Berlin");
    EXPECT_DOUBLE_EQ(service().todaySeconds(), 3600);
}

TEST_F(TimerServiceQuestions, todayGrowsWithTheRunningEntry) {
    service().start(project("A"));
    timer.setTime("09:00:10");
    EXPECT_DOUBLE_EQ(service().todaySeconds(), 10);
    EXPECT_DOUBLE_EQ(service().thisWeekSeconds(), 10);
}

}  // namespace
}  // namespace elmworth
