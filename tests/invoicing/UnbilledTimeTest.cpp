// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/UnbilledTime.h"

#include <gtest/gtest.h>

#include <limits>

#include "records/TimeEntry.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;

class UnbilledTimeTest : public testing::Test {
 protected:
    Ref<TimeEntry> addEntry(Instant::duration length, const Ref<Project>& project) {
        return library_.addEntry(project, start_, start_ + length);
    }
    UnbilledTime of(const Ref<Project>& project) {
        return unbilledTimeByProject(library_.context())[project->id()];
    }

    const Instant start_ = at("2026-03-02T09:00Z");
    test::TestLibrary library_;
    Ref<Client> client_ = library_.addClient("Acme");
    Ref<Project> website_ = library_.addProject("Website", client_);
};

TEST_F(UnbilledTimeTest, runningAndBilledTimeStaysOut) {
    library_.addEntry(website_, start_, std::nullopt);
    addEntry(1h, website_)->invoice = library_.addInvoice("A", client_);
    EXPECT_TRUE(unbilledTimeByProject(library_.context()).empty());
    library_.context().save();
    EXPECT_TRUE(unbilledTimeByProject(library_.context()).empty());
}

TEST_F(UnbilledTimeTest, timeOfArchivedProjectsCounts) {
    website_->isArchived = true;
    addEntry(90min, website_);
    EXPECT_EQ(of(website_).seconds, 5400);
    EXPECT_EQ(of(website_).cents, 15000);
}

TEST_F(UnbilledTimeTest, entriesArePricedOneByOneAtFullLength) {
    client_->hourlyRateCents = 30;
    addEntry(1min, website_);
    addEntry(1min, website_);
    EXPECT_EQ(of(website_).cents, 2) << "half a cent twice, each rounded up";
    addEntry(1s, website_);
    EXPECT_EQ(of(website_).seconds, 121) << "no rounding step";
}

TEST_F(UnbilledTimeTest, aReversedEntryCountsAgainstTheOthers) {
    addEntry(2h, website_);
    addEntry(-30min, website_);
    EXPECT_EQ(of(website_).seconds, 5400);
    EXPECT_EQ(of(website_).cents, 15000);
}

TEST_F(UnbilledTimeTest, projectsAreKeptApartAndHaveTheirOwnRates) {
    const auto app = library_.addProject("App", client_);
    app->rateOverrideCents = 20000;
    addEntry(1h, website_);
    addEntry(1h, app);
    addEntry(1h, nullptr);
    EXPECT_EQ(of(website_).cents, 10000);
    EXPECT_EQ(of(app).cents, 20000);
    EXPECT_EQ(unbilledTimeByProject(library_.context()).size(), 2U);
}

TEST_F(UnbilledTimeTest, theFirstStartIsThatOfWhatTheClientCanBeBilled) {
    const auto first = [&] { return firstUnbilledStart(library_.context(), client_, start_ + 8h); };
    const auto addAt = [&](Instant::duration before, const Ref<Project>& project) {
        return library_.addEntry(project, start_ - before, start_ - before + 1h);
    };
    EXPECT_EQ(first(), std::nullopt);
    addEntry(1h, website_);
    addEntry(1h, library_.addProject("App", client_));
    addAt(1h, website_)->invoice = library_.addInvoice("A", client_);
    addAt(2h, library_.addProject("Site", library_.addClient("Globex")));
    addAt(2h, nullptr);
    library_.addEntry(website_, start_ - 3h, std::nullopt);
    library_.addEntry(website_, start_ + 8h, start_ + 9h);
    EXPECT_EQ(first(), start_);
    library_.context().save();
    EXPECT_EQ(first(), start_);
    addAt(4h, website_);
    EXPECT_EQ(first(), start_ - 4h) << "also what is not saved yet";
}

TEST_F(UnbilledTimeTest, figuresAddUp) {
    UnbilledTime sum{60, 100};
    sum += {30, 5};
    EXPECT_EQ(sum.seconds, 90);
    EXPECT_EQ(sum.cents, 105);
}

TEST_F(UnbilledTimeTest, figuresStayWithin64Bits) {
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    UnbilledTime sum{60, most - 1};
    sum += {30, 5};
    EXPECT_EQ(sum.cents, most);
}

}  // namespace
}  // namespace elmworth
