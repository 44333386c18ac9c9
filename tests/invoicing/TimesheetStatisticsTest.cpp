// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/TimesheetStatistics.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;

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
        return timesheetStatistics(entries_, range_, at("2026-03-02T12:00Z"));
    }

    test::TestLibrary library_{test::TestLibrary::emptyFile()};
    Ref<Client> client_ = library_.addClient("Acme");
    Ref<Project> project_ = library_.addProject("Web", client_);
    std::vector<Ref<TimeEntry>> entries_;
    DateInterval range_{at("2026-03-02T00:00Z"), at("2026-03-03T00:00Z")};
};

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

}  // namespace
}  // namespace elmworth
