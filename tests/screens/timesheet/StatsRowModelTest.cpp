// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/StatsRowModel.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "screens/timesheet/Listed.h"
#include "support/ScopedEnvironment.h"

namespace elmworth {
namespace {

using test::at;
using test::clientNamed;
using test::listed;
using test::projectNamed;

const DateInterval day{at("2026-03-02T00:00Z"), at("2026-03-03T00:00Z")};
const Instant noon = at("2026-03-02T12:00Z");

class StatsRow : public testing::Test {
 protected:
    void show(const std::vector<TimesheetEntry>& entries) {
        TimesheetSums sums(day);
        for (const auto& entry : entries) sums.add(entry);
        model.show(std::move(sums), noon);
    }

    /// All six texts, value over detail.
    [[nodiscard]] std::string texts() const {
        return (model.tracked() + u'|' + model.trackedDetail() + u'\n' + model.billable() + u'|' +
                model.billableDetail() + u'\n' + model.unbilled() + u'|' + model.unbilledDetail())
            .toStdString();
    }

    test::ScopedEnvironment locale{"LC_ALL", "en_US.UTF-8"};
    StatsRowModel model;
    Ref<Project> web = projectNamed("Web", clientNamed("Acme", "EUR"));
};

TEST_F(StatsRow, ofNoEntriesIsZeroInDollars) {
    EXPECT_EQ(texts(), "0:00|0 entries\n$0.00|Before rounding\n$0.00|0:00 ready to invoice");
    show({});
    EXPECT_EQ(texts(), "0:00|0 entries\n$0.00|Before rounding\n$0.00|0:00 ready to invoice");
}

TEST_F(StatsRow, tellsOneEntryFromSeveral) {
    const auto hour = listed(web, "2026-03-02T08:00Z", "2026-03-02T09:00Z");
    show({hour});
    EXPECT_EQ(model.trackedDetail(), QStringLiteral("1 entry"));
    show({hour, hour});
    EXPECT_EQ(texts(), "2:00|2 entries\n€200.00|Before rounding\n€200.00|2:00 ready to invoice");
}

TEST_F(StatsRow, ofARunningEntryGrowsInWhatIsTrackedAlone) {
    show({listed(web, "2026-03-02T11:00Z", "")});
    EXPECT_EQ(texts(), "1:00|1 entry\n€100.00|Before rounding\n€0.00|0:00 ready to invoice");
    QSignalSpy unbilled(&model, &StatsRowModel::unbilledChanged);
    model.tick(noon + std::chrono::minutes(90));
    EXPECT_EQ(texts(), "2:30|1 entry\n€250.00|Before rounding\n€0.00|0:00 ready to invoice");
    EXPECT_EQ(unbilled.size(), 0);
}

TEST_F(StatsRow, doesNotChangeWithTimeWhileNothingRuns) {
    show({listed(web, "2026-03-02T08:00Z", "2026-03-02T09:00Z")});
    QSignalSpy tracked(&model, &StatsRowModel::trackedChanged);
    model.tick(noon + std::chrono::hours(3));
    EXPECT_EQ(tracked.size(), 0);
}

TEST_F(StatsRow, aSecondWithinTheSameMinuteChangesMoneyAlone) {
    show({listed(web, "2026-03-02T11:00Z", "")});
    QSignalSpy tracked(&model, &StatsRowModel::trackedChanged);
    QSignalSpy billable(&model, &StatsRowModel::billableChanged);
    model.tick(noon + std::chrono::seconds(1));
    EXPECT_EQ(tracked.size(), 0);
    EXPECT_EQ(billable.size(), 1);
}

TEST_F(StatsRow, ofSeveralCurrenciesShowsHoursForMoney) {
    show({listed(web, "2026-03-02T08:00Z", "2026-03-02T09:00Z"),
          listed(projectNamed("Shop", clientNamed("Globex", "USD")), "2026-03-02T09:00Z",
                 "2026-03-02T10:30Z")});
    EXPECT_EQ(texts(), "2:30|2 entries\nMixed|Several currencies\n2:30|2:30 ready to invoice");
}

TEST_F(StatsRow, writesMoneyInTheLocaleOfTheMoment) {
    const test::ScopedEnvironment german("LC_ALL", "de_DE.UTF-8");
    show({listed(web, "2026-03-02T08:00Z", "2026-03-02T20:00Z")});
    EXPECT_EQ(model.billable(), QStringLiteral("1.200,00\u00a0€"));
}

}  // namespace
}  // namespace elmworth
