// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/TimesheetStatistics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::moved;

/// Entries of a client in euros at 100 an hour, over March 2 in UTC, seen at noon.
class Statistics : public testing::Test {
 protected:
    Statistics() { client_->currencyCode = "EUR"; }

    Ref<TimeEntry> add(const Ref<Project>& project, const char* start, const char* end) {
        entries_.push_back(library_.addEntry(
            project, at(std::string("2026-03-02T") + start + "Z"),
            end == nullptr ? std::nullopt
                           : std::optional(at(std::string("2026-03-02T") + end + "Z"))));
        return entries_.back();
    }
    [[nodiscard]] TimesheetStatistics statistics() const {
        return statisticsAt(at("2026-03-02T12:00Z"));
    }
    [[nodiscard]] TimesheetStatistics statisticsAt(Instant now) const {
        TimesheetSums sums(range_);
        for (const auto& entry : listed()) sums.add(entry);
        return sums.statistics(now);
    }
    [[nodiscard]] std::vector<TimesheetEntry> listed() const {
        std::vector<TimesheetEntry> listed;
        for (const auto& entry : entries_) listed.push_back(TimesheetEntry::of(*entry));
        return listed;
    }

    test::TestLibrary library_{test::TestLibrary::emptyFile()};
    Ref<Client> client_ = library_.addClient("Acme");
    Ref<Project> project_ = library_.addProject("Web", client_);
    std::vector<Ref<TimeEntry>> entries_;
    DateInterval range_{at("2026-03-02T00:00Z"), at("2026-03-03T00:00Z")};
};

TEST_F(Statistics, ofTwoPartsAddUpToThoseOfTheWhole) {
    const auto globex = library_.addClient("Globex");
    globex->currencyCode = "USD";
    add(project_, "08:00", "09:00");
    add(nullptr, "09:00", "09:20");
    add(library_.addProject("Shop", globex), "10:00", "10:40");
    add(project_, "11:00", nullptr);
    const auto all = listed();
    for (std::size_t first = 0; first <= all.size(); ++first) {
        TimesheetSums sums(range_);
        TimesheetSums rest(range_);
        for (std::size_t i = 0; i < all.size(); ++i) (i < first ? sums : rest).add(all[i]);
        sums.add(rest);
        const auto added = sums.statistics(at("2026-03-02T12:00Z"));
        const auto whole = statistics();
        EXPECT_EQ(added.entryCount, whole.entryCount);
        EXPECT_EQ(added.trackedSeconds, whole.trackedSeconds);
        EXPECT_EQ(added.unbilledSeconds, whole.unbilledSeconds);
        EXPECT_EQ(added.currencyCode, whole.currencyCode);
        EXPECT_EQ(added.billableCents, whole.billableCents);
        EXPECT_EQ(added.unbilledCents, whole.unbilledCents);
        EXPECT_TRUE(sums.hasRunning());
    }
}

TEST_F(Statistics, ofNothingAreZeroInDollars) {
    const auto all = statistics();
    EXPECT_EQ(all.currencyCode, "USD");
    EXPECT_EQ(all.trackedSeconds, 0);
    EXPECT_EQ(all.billableCents, 0);
}

TEST_F(Statistics, countBilledTimeAsBillableButNotAsUnbilled) {
    add(project_, "08:00", "09:00");
    add(project_, "09:00", "11:00")->invoice = library_.addInvoice("1", client_);
    const auto all = statistics();
    EXPECT_EQ(all.trackedSeconds, 3 * 3600);
    EXPECT_EQ(all.unbilledSeconds, 3600);
    EXPECT_EQ(all.currencyCode, "EUR");
    EXPECT_EQ(all.billableCents, 30000);
    EXPECT_EQ(all.unbilledCents, 10000);
}

TEST_F(Statistics, countARunningEntryUpToNowButNotAsUnbilled) {
    add(project_, "11:30", nullptr);
    const auto all = statistics();
    EXPECT_EQ(all.trackedSeconds, 1800);
    EXPECT_EQ(all.billableCents, 5000);
    EXPECT_EQ(all.unbilledSeconds, 0);
    EXPECT_EQ(all.unbilledCents, 0);
}

TEST_F(Statistics, countOnlyThePartWithinThePeriod) {
    range_ = {at("2026-03-02T09:00Z"), at("2026-03-02T10:00Z")};
    add(project_, "08:00", "09:15");
    add(project_, "09:45", "11:00");
    EXPECT_EQ(statistics().trackedSeconds, 1800);
    EXPECT_EQ(statistics().unbilledCents, 5000);
}

TEST_F(Statistics, countAReversedEntryAsNothing) {
    add(project_, "10:00", "09:00");
    EXPECT_EQ(statistics().trackedSeconds, 0);
    EXPECT_EQ(statistics().billableCents, 0);
}

TEST_F(Statistics, roundEachEntryByItselfHalvesUp) {
    client_->hourlyRateCents = 9;  // 200 seconds are worth half a cent
    add(project_, "08:00", "08:03:20");
    add(project_, "09:00", "09:03:20");
    EXPECT_EQ(statistics().billableCents, 2);
}

TEST_F(Statistics, takeTheFrozenRateOfBilledTime) {
    const auto entry = add(project_, "08:00", "09:00");
    entry->billedRateCents = 7000;
    client_->hourlyRateCents = 20000;
    EXPECT_EQ(statistics().billableCents, 7000);
}

TEST_F(Statistics, takeTheProjectsOwnRate) {
    project_->rateOverrideCents = 1200;
    add(project_, "08:00", "09:00");
    EXPECT_EQ(statistics().billableCents, 1200);
}

TEST_F(Statistics, haveNoCurrencyWhenClientsDiffer) {
    const auto other = library_.addClient("Globex");
    other->currencyCode = "USD";
    add(project_, "08:00", "09:00");
    add(library_.addProject("Shop", other), "09:00", "10:00");
    const auto all = statistics();
    EXPECT_EQ(all.currencyCode, std::nullopt);
    EXPECT_EQ(all.unbilledSeconds, 7200);
}

TEST_F(Statistics, countTimeWithoutAProjectAsHoursAlone) {
    add(project_, "08:00", "09:00");
    add(nullptr, "09:00", "10:00");
    add(library_.addProject("Own", nullptr), "10:00", "11:00");
    const auto all = statistics();
    EXPECT_EQ(all.currencyCode, "EUR");
    EXPECT_EQ(all.trackedSeconds, 3 * 3600);
    EXPECT_EQ(all.billableCents, 10000);
}

TEST_F(Statistics, ofProjectsWithoutClientsAreInDollars) {
    add(library_.addProject("Own", nullptr), "10:00", "11:00");
    EXPECT_EQ(statistics().currencyCode, "USD");
}

TEST_F(Statistics, ofAnAbsurdRateStopAtTheLimit) {
    client_->hourlyRateCents = std::numeric_limits<std::int64_t>::max();
    add(project_, "08:00", "12:00");
    EXPECT_EQ(statistics().billableCents, 9'000'000'000'000'000);
}

TEST_F(Statistics, ofSumsBeyond64BitsStayAtTheirLimit) {
    client_->hourlyRateCents = std::numeric_limits<std::int64_t>::max();
    for (int i = 0; i < 2000; ++i) add(project_, "08:00", "12:00");
    EXPECT_EQ(statistics().billableCents, std::numeric_limits<std::int64_t>::max());
}

TEST_F(Statistics, ofARunningEntryGrowInWhatIsTrackedAlone) {
    add(project_, "11:00", nullptr);
    const auto later = statisticsAt(at("2026-03-02T12:00:01Z"));
    EXPECT_EQ(statistics().trackedSeconds, 3600);
    EXPECT_EQ(later.trackedSeconds, 3601);
    EXPECT_EQ(later.billableCents, 10003);
    EXPECT_EQ(later.unbilledSeconds, 0);
    EXPECT_EQ(later.unbilledCents, 0);
    EXPECT_EQ(later.entryCount, 1U);
}

TEST_F(Statistics, ofARunningEntryStopAtThePeriodsEnd) {
    add(project_, "23:00", nullptr);
    EXPECT_EQ(statisticsAt(at("2026-03-04T09:00Z")).trackedSeconds, 3600);
    EXPECT_EQ(statisticsAt(at("2026-03-01T09:00Z")).trackedSeconds, 0);
}

TEST_F(Statistics, changeWithTimeOnlyWhileSomethingRuns) {
    TimesheetSums sums(range_);
    sums.add(TimesheetEntry::of(*add(project_, "08:00", "09:00")));
    EXPECT_FALSE(sums.hasRunning());
    sums.add(TimesheetEntry::of(*add(project_, "09:00", nullptr)));
    EXPECT_TRUE(sums.hasRunning());
}

/// The figures as they are defined, from all entries at once.
TimesheetStatistics naive(const std::vector<TimesheetEntry>& entries, const DateInterval& range,
                          Instant now) {
    TimesheetStatistics all;
    for (const auto& entry : entries) {
        const double until = secondsBetween(range.start, entry.end.value_or(now));
        const double from = secondsBetween(range.start, entry.start);
        const double length = secondsBetween(range.start, range.end);
        const double seconds = std::max(0.0, std::min(until, length) - std::max(from, 0.0));
        const double cents = std::round(seconds / 3600.0 * static_cast<double>(entry.rateCents));
        all.trackedSeconds += seconds;
        all.billableCents += static_cast<std::int64_t>(cents);
        if (entry.isBilled || !entry.end) continue;
        all.unbilledSeconds += seconds;
        all.unbilledCents += static_cast<std::int64_t>(cents);
    }
    return all;
}

TEST_F(Statistics, equalTheSumOverAllEntriesAtEachInstant) {
    std::mt19937 random(7);
    const auto pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (int round = 0; round < 200; ++round) {
        std::vector<TimesheetEntry> entries;
        TimesheetSums sums(range_);
        for (int i = pick(0, 30); i > 0; --i) {
            TimesheetEntry entry;
            entry.start = moved(range_.start, pick(-90'000, 180'000));
            if (pick(0, 5) > 0) entry.end = moved(entry.start, pick(-600, 90'000));
            entry.rateCents = pick(0, 30'000);
            entry.isBilled = entry.end && pick(0, 1) == 1;
            entries.push_back(entry);
            sums.add(entry);
        }
        const Instant now = moved(range_.start, pick(-10'000, 200'000));
        const auto expected = naive(entries, range_, now);
        const auto all = sums.statistics(now);
        EXPECT_EQ(all.entryCount, entries.size());
        EXPECT_EQ(all.trackedSeconds, expected.trackedSeconds);
        EXPECT_EQ(all.unbilledSeconds, expected.unbilledSeconds);
        EXPECT_EQ(all.billableCents, expected.billableCents);
        EXPECT_EQ(all.unbilledCents, expected.unbilledCents);
    }
}

}  // namespace
}  // namespace elmworth
