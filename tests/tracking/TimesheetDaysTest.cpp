// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/TimesheetDays.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "support/Instants.h"
#include "support/ScopedEnvironment.h"
#include "support/TestLibrary.h"
#include "tracking/ReferenceListing.h"

namespace elmworth {
namespace {

using std::chrono::hours;
using std::chrono::minutes;
using test::at;
using test::TestLibrary;

/// A timesheet of random years in Berlin, some time over midnight, some of months, some reversed.
class TimesheetListed : public testing::Test {
 protected:
    void fill(int count) {
        std::vector<Ref<Project>> projects{nullptr};
        for (const char* name : {"Website", "Shop", "Löschung"}) {
            projects.push_back(
                library_.addProject(name, library_.addClient("Of " + std::string(name))));
        }
        std::uniform_int_distribution<std::size_t> project(0, projects.size() - 1);
        std::uniform_int_distribution<int> minute(0, 3 * 366 * 24 * 60);
        for (int i = 0; i < count; ++i) {
            const Instant start = at("2024-01-01T00:00+01:00") + minutes(minute(random_));
            auto entry = library_.addEntry(projects[project(random_)], start, start + length());
            entry->notes = i % 3 == 0 ? "Review" : i % 7 == 0 ? "" : "Draft";
        }
        library_.addEntry(projects[1], now_ - hours(50), std::nullopt);
        library_.context().save();
    }

    minutes length() {
        const int kind = std::uniform_int_distribution<int>(0, 9)(random_);
        if (kind == 0) return hours(24 * 40);
        if (kind == 1) return -minutes(30);
        if (kind == 2) return hours(14);
        return minutes(std::uniform_int_distribution<int>(0, 180)(random_));
    }

    TimesheetListing listed(const TimesheetFilter& filter) {
        const TimesheetReader reader(library_.context(), filter, now_);
        std::vector<std::shared_ptr<const TimesheetPiece>> pieces;
        TimesheetReader::Entries begunBefore;
        for (std::size_t i = 0; i + 1 < reader.pieceCount(); ++i) {
            pieces.push_back(reader.read(i));
            for (auto& entry : reader.readBegunBefore(i)) begunBefore.push_back(std::move(entry));
        }
        pieces.push_back(
            std::make_shared<TimesheetPiece>(TimesheetPiece().edited({}, std::move(begunBefore))));
        return listTimesheet(std::move(pieces), filter.range, now_, calendar_,
                             TimesheetSearch(filter.search));
    }

    /// As the rules say it, entry by entry.
    void expectAsTold(const TimesheetFilter& filter) {
        EXPECT_EQ(test::linesOf(listed(filter), now_),
                  test::naiveListing(library_.context(), filter, now_, calendar_));
    }

    test::ScopedEnvironment locale_{"LC_ALL", "de_DE.UTF-8"};
    TestLibrary library_{TestLibrary::emptyFile()};
    Calendar calendar_{Locale("de_DE"), "Europe/Berlin"};
    Instant now_ = at("2026-11-06T12:00+01:00");
    std::mt19937 random_{7};  // NOLINT: the same library in each run
};

TEST_F(TimesheetListed, ofAWeekOrMonthOrAllYearsHasTheEntriesAndDaysThatTheRulesGive) {
    fill(700);
    TimesheetFilter filter;
    for (const auto unit :
         {CalendarUnit::day, CalendarUnit::weekOfYear, CalendarUnit::month, CalendarUnit::year}) {
        for (const char* when :
             {"2024-03-31T12:00+02:00", "2025-10-26T12:00+01:00", "2026-11-06T12:00+01:00"}) {
            filter.range = *calendar_.interval(unit, at(when));
            expectAsTold(filter);
        }
    }
    filter.range = {at("2020-01-01T00:00+01:00"), at("2027-01-01T00:00+01:00")};
    expectAsTold(filter);
}

TEST_F(TimesheetListed, throughEachFilterHasWhatPasses) {
    fill(300);
    TimesheetFilter filter;
    filter.range = {at("2023-01-01T00:00+01:00"), at("2027-01-01T00:00+01:00")};
    filter.unbilledOnly = true;
    expectAsTold(filter);
    filter.project = library_.context().fetch<Project>().front();
    expectAsTold(filter);
    filter.client = filter.project->client;
    expectAsTold(filter);
    filter.search = " rEVIEW ";
    expectAsTold(filter);
    filter.project = nullptr;
    filter.client = nullptr;
    filter.search = "lösch";
    expectAsTold(filter);
}

TEST_F(TimesheetListed, ofManyYearsIsReadSomeWeeksAtATimeWhateverTheOrder) {
    fill(300);
    TimesheetFilter filter;
    filter.range = {at("2010-01-01T00:00+01:00"), at("2040-01-01T00:00+01:00")};
    const TimesheetReader reader(library_.context(), filter, now_);
    EXPECT_GE(reader.pieceCount(), 18U);  // of three years, however many the period has
    EXPECT_LE(reader.pieceCount(), 21U);
    std::vector<std::shared_ptr<const TimesheetPiece>> pieces(reader.pieceCount());
    pieces[0] = reader.read(0);
    const auto first = listTimesheet(pieces, filter.range, now_, calendar_, TimesheetSearch(""));
    EXPECT_EQ(first.entries.size(), pieces[0]->size());
    EXPECT_GT(first.entries.size(), 0U);
}

TEST_F(TimesheetListed, ofThirtyYearsInOneEntryHasItInEachDayOfTheWeek) {
    library_.addEntry(nullptr, at("1996-01-01T00:00+01:00"), at("2026-11-05T06:00+01:00"));
    TimesheetFilter filter;
    filter.range = {at("2026-11-02T00:00+01:00"), at("2026-11-09T00:00+01:00")};
    const auto listing = listed(filter);
    ASSERT_EQ(listing.days.size(), 4U);
    EXPECT_EQ(listing.days[0]->seconds(now_), 6 * 3600);
    EXPECT_EQ(listing.days[3]->seconds(now_), 24 * 3600);
}

TEST_F(TimesheetListed, dayOfTheRunningEntryGrowsWithTheClock) {
    library_.addEntry(nullptr, now_ - minutes(30), std::nullopt);
    TimesheetFilter filter;
    filter.range = *calendar_.interval(CalendarUnit::day, now_);
    const auto listing = listed(filter);
    ASSERT_EQ(listing.days.size(), 1U);
    EXPECT_TRUE(listing.days[0]->holdsRunning);
    EXPECT_EQ(listing.days[0]->seconds(now_ + minutes(1)), 31 * 60);
    EXPECT_EQ(listing.days[0]->seconds(now_ + hours(24)), 30 * 60 + 12 * 3600);
}

}  // namespace
}  // namespace elmworth
