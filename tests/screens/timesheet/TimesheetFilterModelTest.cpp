// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/TimesheetFilterModel.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

#include "screens/timesheet/TimesheetTest.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::at;
using test::iso;
using test::Lines;
using test::rowName;
using test::utf8;
using testing::ElementsAre;

class TimesheetFilterBar : public test::TimesheetTest {
 protected:
    [[nodiscard]] std::string range() {
        const auto range = filter().filter().range;
        return iso(range.start) + ' ' + iso(range.end);
    }
    void chooseDays(const char* from, const char* to) {
        filter().from()->day()->edit(QLatin1String(from));
        filter().from()->day()->finish();
        filter().to()->day()->edit(QLatin1String(to));
        filter().to()->day()->finish();
    }
};

TEST_F(TimesheetFilterBar, offersTheEightPeriodsInTheirOrder) {
    EXPECT_EQ(utf8(TimesheetFilterModel::presets().join(u'|')),
              "Today|Yesterday|This Week|Last Week|This Month|Last Month|This Year|Custom");
}

struct PresetRow {
    const char* name;
    const char* preset;
    const char* range;
    const char* subtitle;
};

class TimesheetPeriods : public TimesheetFilterBar,
                         public testing::WithParamInterface<PresetRow> {};

TEST_P(TimesheetPeriods, showTheirFirstAndLastDay) {
    const auto& row = GetParam();
    choosePreset(row.preset);
    EXPECT_EQ(utf8(filter().presetTitle()), row.preset);
    EXPECT_EQ(range(), row.range);
    EXPECT_EQ(utf8(filter().subtitle()), row.subtitle);
    EXPECT_EQ(defaults.string("timesheetRange"), row.preset);
}

INSTANTIATE_TEST_SUITE_P(
    , TimesheetPeriods,
    testing::Values(PresetRow{"Today", "Today", "2026-03-02T00:00:00Z 2026-03-03T00:00:00Z",
                              "Mar 2, 2026 – Mar 2, 2026"},
                    PresetRow{"Yesterday", "Yesterday", "2026-03-01T00:00:00Z 2026-03-02T00:00:00Z",
                              "Mar 1, 2026 – Mar 1, 2026"},
                    PresetRow{"ThisWeek", "This Week", "2026-03-01T00:00:00Z 2026-03-08T00:00:00Z",
                              "Mar 1, 2026 – Mar 7, 2026"},
                    PresetRow{"LastWeek", "Last Week", "2026-02-22T00:00:00Z 2026-03-01T00:00:00Z",
                              "Feb 22, 2026 – Feb 28, 2026"},
                    PresetRow{"ThisMonth", "This Month",
                              "2026-03-01T00:00:00Z 2026-04-01T00:00:00Z",
                              "Mar 1, 2026 – Mar 31, 2026"},
                    PresetRow{"LastMonth", "Last Month",
                              "2026-02-01T00:00:00Z 2026-03-01T00:00:00Z",
                              "Feb 1, 2026 – Feb 28, 2026"},
                    PresetRow{"ThisYear", "This Year", "2026-01-01T00:00:00Z 2027-01-01T00:00:00Z",
                              "Jan 1, 2026 – Dec 31, 2026"},
                    PresetRow{"Custom", "Custom", "2026-02-23T00:00:00Z 2026-03-03T00:00:00Z",
                              "Feb 23, 2026 – Mar 2, 2026"}),
    rowName);

TEST_F(TimesheetFilterBar, isOfThisWeekUntilSomebodyChooses) {
    EXPECT_EQ(utf8(filter().presetTitle()), "This Week");
    EXPECT_FALSE(filter().isCustom());
    EXPECT_FALSE(filter().unbilledOnly());
    EXPECT_FALSE(defaults.string("timesheetRange"));
}

TEST_F(TimesheetFilterBar, theWeekBeginsAsThePlaceHasIt) {
    moveTo("de_DE", "Europe/Berlin");
    EXPECT_EQ(range(), "2026-03-01T23:00:00Z 2026-03-08T23:00:00Z");
    EXPECT_EQ(utf8(filter().subtitle()), "02.03.2026 – 08.03.2026");
}

TEST_F(TimesheetFilterBar, aStoredPeriodThatIsUnknownIsThisWeekAndStaysAsItIs) {
    defaults.setString("timesheetRange", "Fortnight");
    EXPECT_EQ(utf8(filter().presetTitle()), "This Week");
    EXPECT_EQ(filter().preset(), 2);
    EXPECT_EQ(range(), "2026-03-01T00:00:00Z 2026-03-08T00:00:00Z");
    reopen();
    EXPECT_EQ(defaults.string("timesheetRange"), "Fortnight");
}

TEST_F(TimesheetFilterBar, anotherNumberThanThatOfAPresetChoosesNothing) {
    filter().choosePreset(-1);
    filter().choosePreset(8);
    EXPECT_FALSE(defaults.string("timesheetRange"));
}

TEST_F(TimesheetFilterBar, thePeriodAndUnbilledSurviveARestartAndNothingElse) {
    choosePreset("Custom");
    chooseDays("1/5/2026", "1/6/2026");
    filter().setUnbilledOnly(true);
    filter().setSearch(QStringLiteral("logo"));
    choose(*filter().client(), "Globex");
    choose(*filter().project(), "Shop");
    reopen();
    EXPECT_TRUE(filter().isCustom());
    EXPECT_TRUE(filter().unbilledOnly());
    EXPECT_EQ(utf8(filter().subtitle()), "Feb 23, 2026 – Mar 2, 2026");
    EXPECT_EQ(utf8(filter().client()->title()), "All Clients");
    EXPECT_EQ(utf8(filter().project()->title()), "All Projects");
    EXPECT_EQ(utf8(filter().search()), "");
    EXPECT_FALSE(filter().canClear());
}

TEST_F(TimesheetFilterBar, followsTheSettingsWhoeverWritesThem) {
    QSignalSpy changed(&filter(), &TimesheetFilterModel::changed);
    defaults.setString("timesheetRange", "Yesterday");
    defaults.setBoolean("timesheetUnbilledOnly", true);
    EXPECT_EQ(changed.size(), 2);
    EXPECT_EQ(utf8(filter().presetTitle()), "Yesterday");
    EXPECT_TRUE(filter().unbilledOnly());
    defaults.setString("somethingElse", "x");
    EXPECT_EQ(changed.size(), 2);
}

TEST_F(TimesheetFilterBar, aCustomPeriodIsTheSameInEitherOrder) {
    choosePreset("Custom");
    chooseDays("2/3/2026", "2/20/2026");
    EXPECT_EQ(range(), "2026-02-03T00:00:00Z 2026-02-21T00:00:00Z");
    chooseDays("2/20/2026", "2/3/2026");
    EXPECT_EQ(range(), "2026-02-03T00:00:00Z 2026-02-21T00:00:00Z");
    chooseDays("2/3/2026", "2/3/2026");
    EXPECT_EQ(range(), "2026-02-03T00:00:00Z 2026-02-04T00:00:00Z");
}

TEST_F(TimesheetFilterBar, aCustomPeriodOverAChangeOfClocksCountsItsDaysWhole) {
    moveTo("en_US", "America/New_York");
    choosePreset("Custom");
    chooseDays("3/8/2026", "3/8/2026");
    EXPECT_EQ(range(), "2026-03-08T05:00:00Z 2026-03-09T04:00:00Z");
    chooseDays("11/1/2026", "11/1/2026");
    EXPECT_EQ(range(), "2026-11-01T04:00:00Z 2026-11-02T05:00:00Z");
}

TEST_F(TimesheetFilterBar, aDayThatIsNotUnderstoodLeavesTheOneBefore) {
    choosePreset("Custom");
    chooseDays("2/3/2026", "2/20/2026");
    chooseDays("2/33/2026", "");
    EXPECT_EQ(range(), "2026-02-03T00:00:00Z 2026-02-21T00:00:00Z");
}

// --- Clients and projects
// ----------------------------------------------------------------------------

TEST_F(TimesheetFilterBar, offersAllClientsAndAllProjectsByNameArchivedOnesToo) {
    shop->isArchived = true;
    project("App");
    project("own", nullptr);
    EXPECT_THAT(texts(*filter().client()), ElementsAre("All Clients", "Acme Co", "Globex"));
    EXPECT_THAT(texts(*filter().project()),
                ElementsAre("All Projects", "App", "own", "Shop", "Website"));
}

TEST_F(TimesheetFilterBar, withAClientOffersItsProjectsAloneButKeepsAnotherThatWasPicked) {
    choose(*filter().project(), "Website");
    choose(*filter().client(), "Globex");
    EXPECT_THAT(texts(*filter().project()), ElementsAre("All Projects", "Shop"));
    EXPECT_EQ(utf8(filter().project()->title()), "Website");
    EXPECT_EQ(filter().project()->chosenRow(), -1);
    EXPECT_EQ(filter().filter().project, website);
    EXPECT_EQ(filter().filter().client, globex);
    add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    add(shop, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    EXPECT_TRUE(model->isEmpty());
    choose(*filter().project(), "All Projects");
    EXPECT_FALSE(model->isEmpty());
}

TEST_F(TimesheetFilterBar, aClientThatIsDeletedFiltersNoLongerAndNeitherDoItsProjects) {
    add(shop, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    choose(*filter().client(), "Acme Co");
    choose(*filter().project(), "Website");
    EXPECT_TRUE(model->isEmpty());
    QSignalSpy changed(&filter(), &TimesheetFilterModel::changed);
    deleteElsewhere(acme);
    turn();
    EXPECT_GE(changed.size(), 1);
    EXPECT_EQ(utf8(filter().client()->title()), "All Clients");
    EXPECT_EQ(filter().filter().client, nullptr);
    EXPECT_THAT(texts(*filter().client()), ElementsAre("All Clients", "Globex"));
    if (website->isDeleted()) {
        EXPECT_EQ(filter().filter().project, nullptr);
        EXPECT_FALSE(filter().canClear());
        EXPECT_FALSE(model->isEmpty());
    }
}

TEST_F(TimesheetFilterBar, aProjectThatIsDeletedFiltersNoLongerAndNothingIsSelected) {
    add(shop, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    choose(*filter().project(), "Website");
    click(add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z"));
    ASSERT_EQ(selectedCount(), 1U);
    deleteElsewhere(website);
    turn();
    EXPECT_EQ(utf8(filter().project()->title()), "All Projects");
    EXPECT_FALSE(filter().canClear());
    EXPECT_FALSE(model->isEmpty());
    EXPECT_EQ(selectedCount(), 0U);
}

TEST_F(TimesheetFilterBar, aProjectThatIsDeletedWhileItIsNotShownFiltersNoLonger) {
    add(shop, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    choose(*filter().project(), "Website");
    model->setShown(false);
    QSignalSpy changed(&filter(), &TimesheetFilterModel::changed);
    deleteElsewhere(website);
    turn();
    EXPECT_GE(changed.size(), 1);
    model->setShown(true);
    EXPECT_EQ(rowCount(), 2);
}

TEST_F(TimesheetFilterBar, namesFollowTheirRecords) {
    choose(*filter().client(), "Acme Co");
    choose(*filter().project(), "Website");
    acme->name = "Acme Ltd";
    website->name = "Site";
    turn();
    EXPECT_EQ(utf8(filter().client()->title()), "Acme Ltd");
    EXPECT_EQ(utf8(filter().project()->title()), "Site");
}

TEST_F(TimesheetFilterBar, ofFourHundredProjectsOffersThemAllAndFindsOne) {
    for (int i = 1; i <= 400; ++i) {
        timer.library.addProject("Project " + std::to_string(i), globex);
    }
    context().save();
    auto& projects = *filter().project();
    EXPECT_EQ(projects.rows().size(), 403U);
    EXPECT_EQ(utf8(projects.rows()[2].text), "Project 2");  // 2 comes before 10
    projects.setSearch(QStringLiteral(" ject 399 "));
    EXPECT_THAT(texts(projects), ElementsAre("Project 399"));
    projects.choose(0);
    EXPECT_EQ(utf8(projects.title()), "Project 399");
    EXPECT_EQ(projects.rows().size(), 403U) << "a choice ends the search";
    EXPECT_EQ(utf8(projects.rows()[static_cast<std::size_t>(projects.chosenRow())].text),
              "Project 399");
}

// --- Clear, and what becomes of the selection
// --------------------------------------------------------

struct ClearRow {
    const char* name;
    const char* client;
    const char* project;
    const char* search;
    bool canClear;
};

class TimesheetClear : public TimesheetFilterBar, public testing::WithParamInterface<ClearRow> {};

TEST_P(TimesheetClear, isOfferedWhileThereIsAClientAProjectOrAnyText) {
    const auto& row = GetParam();
    choosePreset("Last Month");
    filter().setUnbilledOnly(true);
    choose(*filter().client(), row.client);
    choose(*filter().project(), row.project);
    filter().setSearch(QLatin1String(row.search));
    EXPECT_EQ(filter().canClear(), row.canClear);
    filter().clear();
    EXPECT_FALSE(filter().canClear());
    EXPECT_EQ(utf8(filter().client()->title()), "All Clients");
    EXPECT_EQ(utf8(filter().project()->title()), "All Projects");
    EXPECT_EQ(utf8(filter().search()), "");
    EXPECT_EQ(utf8(filter().presetTitle()), "Last Month");
    EXPECT_TRUE(filter().unbilledOnly());
}

INSTANTIATE_TEST_SUITE_P(
    , TimesheetClear,
    testing::Values(ClearRow{"Nothing", "All Clients", "All Projects", "", false},
                    ClearRow{"AClient", "Globex", "All Projects", "", true},
                    ClearRow{"AProject", "All Clients", "Shop", "", true},
                    ClearRow{"AText", "All Clients", "All Projects", "x", true},
                    ClearRow{"BlanksAlone", "All Clients", "All Projects", "  ", true}),
    rowName);

TEST_F(TimesheetFilterBar, aSearchOfBlanksHidesNothing) {
    add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    filter().setSearch(QStringLiteral(" \t "));
    EXPECT_FALSE(model->isEmpty());
    EXPECT_TRUE(filter().canClear());
}

struct NarrowRow {
    const char* name;
    void (*change)(TimesheetFilterModel&);
    bool keepsSelection;
};

class TimesheetNarrowed : public TimesheetFilterBar,
                          public testing::WithParamInterface<NarrowRow> {};

TEST_P(TimesheetNarrowed, losesItsSelectionUnlessOnlyTheCustomDaysChange) {
    choosePreset("Custom");
    const auto entry = add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z", "logo");
    click(entry);
    ASSERT_TRUE(isSelected(entry));
    GetParam().change(filter());
    EXPECT_EQ(isSelected(entry), GetParam().keepsSelection);
    EXPECT_EQ(model->selection()->currentRow() >= 0, GetParam().keepsSelection);
}

INSTANTIATE_TEST_SUITE_P(
    , TimesheetNarrowed,
    testing::Values(
        NarrowRow{"ByAnotherPeriod", [](auto& filter) { filter.choosePreset(0); }, false},
        NarrowRow{"ByUnbilled", [](auto& filter) { filter.setUnbilledOnly(true); }, false},
        NarrowRow{"BySearch", [](auto& filter) { filter.setSearch(QStringLiteral("l")); }, false},
        NarrowRow{"ByBlanks", [](auto& filter) { filter.setSearch(QStringLiteral(" ")); }, false},
        NarrowRow{"ByAClient", [](auto& filter) { filter.client()->choose(1); }, false},
        NarrowRow{"ByAProject", [](auto& filter) { filter.project()->choose(2); }, false},
        NarrowRow{"ByTheSamePeriod", [](auto& filter) { filter.choosePreset(7); }, true},
        NarrowRow{"ByTheSameClient", [](auto& filter) { filter.client()->choose(0); }, true},
        NarrowRow{"ByClearOfNothing", [](auto& filter) { filter.clear(); }, true},
        NarrowRow{"ByCustomDays",
                  [](auto& filter) {
                      filter.from()->day()->edit(QStringLiteral("2/1/2026"));
                      filter.from()->day()->finish();
                  },
                  true}),
    rowName);

TEST_F(TimesheetFilterBar, ofUnbilledTimeLosesWhatIsBilledElsewhere) {
    filter().setUnbilledOnly(true);
    const auto entry = add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    EXPECT_EQ(rowCount(), 2);
    bill(entry);
    EXPECT_EQ(rowCount(), 0);
    deleteElsewhere(entry->invoice.get());
    turn();
    EXPECT_EQ(rowCount(), 2);
}

}  // namespace
}  // namespace elmworth
