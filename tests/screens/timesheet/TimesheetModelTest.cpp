// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/TimesheetModel.h"

#include <gmock/gmock.h>

#include <QSignalSpy>
#include <algorithm>
#include <fstream>
#include <iterator>

#include "screens/timesheet/TimesheetTest.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::Lines;
using test::rowName;
using test::utf8;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Row = TimesheetRowsModel;

class Timesheet : public test::TimesheetTest {
 protected:
    /// The rows whose data changed since the last call, with the roles that were named.
    [[nodiscard]] static std::map<int, QSet<int>> changesIn(QSignalSpy& spy) {
        std::map<int, QSet<int>> changes;
        for (const auto& call : std::exchange(static_cast<QList<QList<QVariant>>&>(spy), {})) {
            const auto roles = call[2].value<QList<int>>();
            for (int row = call[0].toModelIndex().row(); row <= call[1].toModelIndex().row();
                 ++row) {
                changes[row].unite(QSet<int>(roles.begin(), roles.end()));
            }
        }
        return changes;
    }
    /// Whether a statement asked for entries since the last call.
    [[nodiscard]] static bool readEntries() {
        const auto ran = statements();
        return std::any_of(ran.begin(), ran.end(), [](const std::string& sql) {
            return sql.find("TimeEntry") != std::string::npos && sql.starts_with("SELECT");
        });
    }
};

TEST_F(Timesheet, showsItsDaysNewestFirstAndTheirEntriesToo) {
    add(website, "2026-03-01T09:00Z", "2026-03-01T10:30Z");
    add(shop, "2026-03-02T08:00Z", "2026-03-02T08:30Z");
    add(nullptr, "2026-03-02T07:00Z", "2026-03-02T07:45Z");
    EXPECT_THAT(lines(),
                ElementsAre("Today · Mar 2 · 1:15", "  Shop · 8:00 AM – 8:30 AM · 0:30",
                            "  No project · 7:00 AM – 7:45 AM · 0:45", "Yesterday · Mar 1 · 1:30",
                            "  Website · 9:00 AM – 10:30 AM · 1:30"));
}

TEST_F(Timesheet, ofTimeOverMidnightHasItInTwoDaysThatCountTheirShareAndRowsThatShowAllOfIt) {
    timer.setClock("2026-03-04T12:00Z");
    add(website, "2026-03-02T23:30Z", "2026-03-03T00:30Z");
    EXPECT_THAT(lines(),
                ElementsAre("Yesterday · Mar 3 · 0:30", "  Website · 11:30 PM – 12:30 AM · 1:00",
                            "Monday · Mar 2 · 0:30", "  Website · 11:30 PM – 12:30 AM · 1:00"));
}

TEST_F(Timesheet, ofReversedTimeIsNotEmptyButHasNoDay) {
    add(website, "2026-03-02T08:00Z", "2026-03-02T07:00Z");
    EXPECT_FALSE(model->isEmpty());
    EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(Timesheet, aDayOf25HoursCountsThemAndWritesItsTimesAsThePlaceDoes) {
    timer.setClock("2026-10-25T23:00+01:00");
    moveTo("de_DE", "Europe/Berlin");
    add(website, "2026-10-25T00:00+02:00", "2026-10-26T00:00+01:00");
    EXPECT_THAT(lines(),
                ElementsAre("Today · 25. Okt. · 25:00", "  Website · 00:00 – 00:00 · 25:00"));
}

TEST_F(Timesheet, aDayThatIsNeitherTodayNorYesterdayHasItsWeekdaysNameInThePlacesLanguage) {
    timer.setClock("2026-03-07T09:00Z");
    moveTo("de_DE", "Europe/Berlin");
    add(website, "2026-03-04T09:00Z", "2026-03-04T10:00Z");
    EXPECT_EQ(textAt(0, Row::title), "Mittwoch");
    EXPECT_EQ(utf8(filter().subtitle()), "02.03.2026 – 08.03.2026");
}

// --- Following what happens elsewhere ------------------------------------------------------------

TEST_F(Timesheet, aChangeElsewhereShowsInTheSameTurnAndASaveAtOnce) {
    const auto entry = timer.library.addEntry(website, test::at("2026-03-02T07:00Z"),
                                              test::at("2026-03-02T08:00Z"));
    EXPECT_EQ(rowCount(), 0);
    timer.library.runLoop.turn();
    EXPECT_EQ(rowCount(), 2);
    entry->end = test::at("2026-03-02T08:30Z");
    context().save();
    EXPECT_EQ(textAt(1, Row::total), "1:30");
}

TEST_F(Timesheet, aRenamedOrRecolouredProjectAndARenamedClientShow) {
    add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    QSignalSpy changed(&model->rows(), &QAbstractItemModel::dataChanged);
    website->name = "Site";
    website->colorHex = "#123456";
    turn();
    EXPECT_TRUE(changesIn(changed).contains(1));
    EXPECT_EQ(textAt(1, Row::title), "Site");
    EXPECT_EQ(textAt(1, Row::projectColor), "#123456");
    acme->name = "Acme Ltd";
    turn();
    EXPECT_TRUE(changesIn(changed).contains(1));
    EXPECT_EQ(textAt(1, Row::detail), "Acme Ltd");
}

TEST_F(Timesheet, readsNoEntriesWhileItIsNotShownAndCatchesUp) {
    model->setShown(false);
    static_cast<void>(statements());
    add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    website->name = "Site";
    context().save();
    choosePreset("This Month");
    filter().setSearch(QStringLiteral("site"));
    turn();
    EXPECT_FALSE(readEntries());
    EXPECT_EQ(rowCount(), 0);
    QSignalSpy shown(model.get(), &TimesheetModel::isShownChanged);
    model->setShown(true);
    EXPECT_EQ(shown.size(), 1);
    EXPECT_THAT(lines(), ElementsAre("Today · Mar 2 · 1:00", "  Site · 7:00 AM – 8:00 AM · 1:00"));
}

TEST_F(Timesheet, thatIsShownAgainUnchangedReadsNothing) {
    add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    model->setShown(false);
    static_cast<void>(statements());
    model->setShown(true);
    EXPECT_FALSE(readEntries());
    EXPECT_EQ(rowCount(), 2);
}

TEST_F(Timesheet, thatIsShownAgainTheNextDayIsOfThatDay) {
    choosePreset("Today");
    add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    model->setShown(false);
    timer.setClock("2026-03-03T08:00Z");
    model->setShown(true);
    EXPECT_EQ(rowCount(), 0);
    choosePreset("Yesterday");
    EXPECT_EQ(line(0), "Yesterday · Mar 2 · 1:00");
}

TEST_F(Timesheet, keepsRowsInPlaceWhenOthersComeAndGo) {
    const auto entry = add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    const QPersistentModelIndex row = model->rows().index(rowOf(entry));
    QSignalSpy resets(&model->rows(), &QAbstractItemModel::modelReset);
    const auto other = add(shop, "2026-03-02T08:00Z", "2026-03-02T08:30Z");
    add(shop, "2026-03-01T08:00Z", "2026-03-01T08:30Z");
    EXPECT_EQ(row.row(), 2);
    deleteElsewhere(other);
    EXPECT_EQ(row.row(), 1);
    EXPECT_EQ(resets.size(), 0);
}

// --- The running entry
// -----------------------------------------------------------------------------

TEST_F(Timesheet, aTickChangesOnlyWhatShowsTheRunningEntry) {
    add(shop, "2026-03-01T08:00Z", "2026-03-01T08:30Z");
    add(shop, "2026-03-02T07:00Z", "2026-03-02T07:30Z");
    service().start(website);
    pass(50);
    QSignalSpy changed(&model->rows(), &QAbstractItemModel::dataChanged);
    QSignalSpy listed(model.get(), &TimesheetModel::listed);
    static_cast<void>(statements());
    pass(9);
    EXPECT_THAT(changesIn(changed), IsEmpty());  // the minute is the same
    pass(1);
    const auto changes = changesIn(changed);
    ASSERT_EQ(changes.size(), 2U);  // the head of today, and the running entry below it
    const QSet<int> roles{Row::total, Row::summary};
    EXPECT_EQ(changes.at(0), roles);
    EXPECT_EQ(changes.at(1), roles);
    EXPECT_EQ(listed.size(), 0);
    EXPECT_FALSE(readEntries());
    EXPECT_EQ(line(0), "Today · Mar 2 · 0:31");
    EXPECT_EQ(line(1), "  Website · 9:00 AM – now · 0:01");
}

TEST_F(Timesheet, aKeyInTheNotesOfTheRunningEntryChangesItsRowAlone) {
    add(shop, "2026-03-02T07:00Z", "2026-03-02T07:30Z");
    service().start(website);
    pass(60);
    QSignalSpy changed(&model->rows(), &QAbstractItemModel::dataChanged);
    QSignalSpy listed(model.get(), &TimesheetModel::listed);
    static_cast<void>(statements());
    model->running()->setNotes(QStringLiteral("Lo"));
    turn();
    EXPECT_EQ(textAt(1, Row::notes), "Lo");
    EXPECT_EQ(changesIn(changed),
              (std::map<int, QSet<int>>{{1, {Row::notes, Row::hasNotes, Row::summary}}}));
    EXPECT_EQ(listed.size(), 0);
    EXPECT_FALSE(readEntries());
}

TEST_F(Timesheet, theNotesOfAnEntryOverMidnightChangeInBothItsRows) {
    const auto night = add(website, "2026-03-01T23:00Z", "2026-03-02T01:00Z");
    QSignalSpy changed(&model->rows(), &QAbstractItemModel::dataChanged);
    night->notes = "Late";
    turn();
    const auto changes = changesIn(changed);
    EXPECT_EQ(changes.size(), 2U);
    EXPECT_TRUE(changes.contains(1));
    EXPECT_TRUE(changes.contains(3));
}

TEST_F(Timesheet, theBarOfTheRunningEntryGrowsWithTheFigures) {
    service().start(website);
    pass(60);
    ASSERT_TRUE(model->showsChart());
    QSignalSpy changed(model->chart(), &DailyChartModel::changed);
    pass(59);
    EXPECT_EQ(changed.size(), 0) << "the minute is the same";
    pass(1);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_NEAR(model->chart()->stacks().barsOf(1).back().top, 2.0 / 60, 1e-9);
}

TEST_F(Timesheet, aTickWhileItIsNotShownChangesNothing) {
    service().start(website);
    pass(1);
    model->setShown(false);
    QSignalSpy changed(&model->rows(), &QAbstractItemModel::dataChanged);
    static_cast<void>(statements());
    pass(120);
    EXPECT_EQ(changed.size(), 0);
    EXPECT_FALSE(readEntries());
    model->setShown(true);
    EXPECT_EQ(textAt(1, Row::total), "0:02");
    EXPECT_EQ(textAt(0, Row::total), "0:02");
    EXPECT_GE(changed.size(), 1);
}

TEST_F(Timesheet, theRunningEntryGoesOverMidnightIntoTheNewDay) {
    timer.setTime("23:59:00");
    service().start(website);
    pass(59);
    EXPECT_THAT(lines(), ElementsAre("Today · Mar 2 · 0:00", "  Website · 11:59 PM – now · 0:00"));
    pass(2);
    EXPECT_THAT(lines(),
                ElementsAre("Today · Mar 3 · 0:00", "  Website · 11:59 PM – now · 0:01",
                            "Yesterday · Mar 2 · 0:01", "  Website · 11:59 PM – now · 0:01"));
    pass(59);
    EXPECT_EQ(line(0), "Today · Mar 3 · 0:01");
    EXPECT_EQ(line(2), "Yesterday · Mar 2 · 0:01");
}

TEST_F(Timesheet, ofTodayTurnsToTheNewDayAtMidnight) {
    choosePreset("Today");
    timer.setTime("23:00");
    add(shop, "2026-03-02T07:00Z", "2026-03-02T07:30Z");
    service().start(website);
    EXPECT_EQ(utf8(filter().subtitle()), "Mar 2, 2026 – Mar 2, 2026");
    QSignalSpy changed(&filter(), &TimesheetFilterModel::changed);
    timer.setClock("2026-03-03T00:10Z");
    pass(1);
    EXPECT_THAT(lines(), ElementsAre("Today · Mar 3 · 0:10", "  Website · 11:00 PM – now · 1:10"));
    EXPECT_EQ(utf8(filter().subtitle()), "Mar 3, 2026 – Mar 3, 2026");
    EXPECT_GE(changed.size(), 1) << "the subtitle is another one";
}

TEST_F(Timesheet, aDaysTotalFollowsTheRunningEntryThatIsGivenAnotherStart) {
    const auto running = add(website, "2026-03-02T08:30Z", "");
    service().restore();
    turn();
    QSignalSpy changed(&model->rows(), &QAbstractItemModel::dataChanged);
    running->start = test::at("2026-03-02T07:00Z");
    context().save();
    EXPECT_EQ(line(0), "Today · Mar 2 · 2:00");
    const auto changes = changesIn(changed);
    ASSERT_TRUE(changes.contains(0));
    EXPECT_TRUE(changes.at(0).contains(Row::total));
    ASSERT_TRUE(changes.contains(1));
}

TEST_F(Timesheet, whatRunsIsToldToHaveGrownByWhateverComesFirst) {
    service().start(website);
    pass(59);
    EXPECT_EQ(textAt(1, Row::total), "0:00");
    QSignalSpy changed(&model->rows(), &QAbstractItemModel::dataChanged);
    timer.now += std::chrono::seconds(2);
    add(shop, "2026-03-01T08:00Z", "2026-03-01T08:30Z");  // before the next tick
    timer.library.runLoop.fire();
    const auto changes = changesIn(changed);
    EXPECT_EQ(textAt(1, Row::total), "0:01");
    ASSERT_TRUE(changes.contains(0));
    ASSERT_TRUE(changes.contains(1));
}

TEST_F(Timesheet, anEntryThatIsStoppedShowsItsEnd) {
    service().start(website);
    pass(60);
    EXPECT_TRUE(value(1, Row::isRunning).toBool());
    EXPECT_FALSE(value(1, Row::canContinue).toBool());
    service().stop();
    turn();
    EXPECT_EQ(line(1), "  Website · 9:00 AM – 9:01 AM · 0:01");
    EXPECT_FALSE(value(1, Row::isRunning).toBool());
    EXPECT_TRUE(value(1, Row::canContinue).toBool());
}

TEST_F(Timesheet, whatRunsStandsInTheBannerWhateverTheFilter) {
    service().start(website);
    filter().setSearch(QStringLiteral("nothing of the kind"));
    choosePreset("Last Month");
    EXPECT_TRUE(model->isEmpty());
    EXPECT_TRUE(model->running()->isRunning());
    EXPECT_EQ(utf8(model->running()->projectTitle()), "Website");
}

TEST_F(Timesheet, aTimerOfAClockThatWasSetBackShowsWhenItsTimeComes) {
    add(website, "2026-03-02T09:00:02Z", "");
    service().restore();
    turn();
    EXPECT_FALSE(model->isEmpty());
    EXPECT_THAT(lines(), IsEmpty());
    pass(3);
    EXPECT_THAT(lines(), ElementsAre("Today · Mar 2 · 0:00", "  Website · 9:00 AM – now · 0:00"));
}

// --- What stands above the days
// --------------------------------------------------------------------

TEST_F(Timesheet, thatIsEmptyTellsAnEmptyLibraryFromAnEmptyPeriod) {
    EXPECT_TRUE(model->isEmpty());
    EXPECT_EQ(utf8(model->emptyTitle()), "Nothing tracked yet");
    EXPECT_THAT(utf8(model->emptyMessage()), HasSubstr("press play on a project — or add time"));
    const auto old = add(website, "2020-03-02T07:00Z", "2020-03-02T08:00Z");
    EXPECT_EQ(utf8(model->emptyTitle()), "No entries here");
    EXPECT_EQ(utf8(model->emptyMessage()), "No time matches this period and filter.");
    deleteElsewhere(old);
    EXPECT_EQ(utf8(model->emptyTitle()), "Nothing tracked yet");
}

TEST_F(Timesheet, thatIsEmptyLeadsToThePanelWhereThereIsNoTray) {
    EXPECT_THAT(utf8(model->emptyMessage()), HasSubstr("in your system tray"));
    model->setTrayShown(false);
    EXPECT_EQ(utf8(model->emptyMessage()),
              "Choose Open Panel in the menu and press play on a project — or add time by hand "
              "with Ctrl+N.");
    add(website, "2020-03-02T07:00Z", "2020-03-02T08:00Z");
    EXPECT_EQ(utf8(model->emptyMessage()), "No time matches this period and filter.");
}

struct ChartRow {
    const char* name;
    const char* from;
    const char* to;
    bool hasEntry;
    bool showsChart;
};

class TimesheetChart : public Timesheet, public testing::WithParamInterface<ChartRow> {};

TEST_P(TimesheetChart, isShownForAPeriodOfAMonthThatIsNotEmpty) {
    const auto& row = GetParam();
    if (row.hasEntry) add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    choosePreset("Custom");
    filter().from()->setValue(test::at(row.from));
    filter().to()->setValue(test::at(row.to));
    Q_EMIT filter().from()->changed();
    EXPECT_EQ(model->showsChart(), row.showsChart);
}

INSTANTIATE_TEST_SUITE_P(
    , TimesheetChart,
    testing::Values(ChartRow{"ADay", "2026-03-02T00:00Z", "2026-03-02T00:00Z", true, true},
                    ChartRow{"EmptyDay", "2026-03-02T00:00Z", "2026-03-02T00:00Z", false, false},
                    ChartRow{"Of32Days", "2026-03-01T00:00Z", "2026-04-01T12:00Z", true, true},
                    ChartRow{"Of33Days", "2026-03-01T00:00Z", "2026-04-02T00:00Z", true, false}),
    rowName);

TEST_F(Timesheet, figuresAreOfWhatIsListed) {
    add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z", "Draft");
    add(website, "2026-03-02T08:00Z", "2026-03-02T08:30Z", "Logo");
    EXPECT_EQ(utf8(model->stats()->tracked()), "1:30");
    filter().setSearch(QStringLiteral("logo"));
    EXPECT_EQ(utf8(model->stats()->tracked()), "0:30");
    EXPECT_EQ(utf8(model->stats()->trackedDetail()), "1 entry");
}

// --- While years are read
// ------------------------------------------------------------------------------

class TimesheetOfYears : public Timesheet {
 protected:
    TimesheetOfYears() {
        const Instant now = timer.now;
        for (int i = 1; i <= 3'000; ++i) {
            const Instant start = now - i * std::chrono::hours(30);
            timer.library.addEntry(website, start, start + std::chrono::hours(1))->notes =
                i == 3'000 ? "oldest" : "";
        }
        context().save();
        choosePreset("Custom");
        filter().from()->setValue(now - std::chrono::days(366 * 12));
        Q_EMIT filter().from()->changed();
    }
    void readAll() {
        for (int i = 0; model->isReading(); ++i) {
            ASSERT_LT(i, 1'000);
            turn();
        }
    }
};

TEST_F(TimesheetOfYears, itsFiguresSayThatMoreIsToCome) {
    ASSERT_TRUE(model->isReading());
    EXPECT_THAT(utf8(model->stats()->trackedDetail()), testing::EndsWith(" entries so far"));
    EXPECT_EQ(utf8(model->stats()->billableDetail()), "Before rounding so far");
    EXPECT_THAT(utf8(model->stats()->unbilledDetail()),
                testing::EndsWith(" ready to invoice so far"));
    readAll();
    EXPECT_EQ(utf8(model->stats()->trackedDetail()), "3000 entries");
    EXPECT_EQ(utf8(model->stats()->billableDetail()), "Before rounding");
}

TEST_F(TimesheetOfYears, itIsNotEmptyBeforeAllIsRead) {
    filter().setSearch(QStringLiteral("oldest"));
    ASSERT_TRUE(model->isReading());
    EXPECT_EQ(rowCount(), 0);
    EXPECT_FALSE(model->isEmpty());
    EXPECT_TRUE(model->showsNothing());
    QSignalSpy listed(model.get(), &TimesheetModel::listed);
    readAll();
    EXPECT_GT(listed.size(), 1);
    EXPECT_FALSE(model->isEmpty());
    EXPECT_EQ(rowCount(), 2);
    filter().setSearch(QStringLiteral("nowhere"));
    EXPECT_TRUE(model->isEmpty());
}

TEST_F(TimesheetOfYears, anExportHasAllOfThemAlsoWhileTheyAreRead) {
    ASSERT_TRUE(model->isReading());
    const auto file = timer.library.folder.path() / "all.csv";
    model->exportTo(QUrl::fromLocalFile(QString::fromStdString(file.string())));
    EXPECT_TRUE(model->isReading());
    std::ifstream written(file);
    const std::string text(std::istreambuf_iterator<char>(written), {});
    EXPECT_THAT(text, HasSubstr("oldest"));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3'001);
}

TEST_F(TimesheetOfYears, theirRowsComeBelowThoseThatStand) {
    const auto before = lines();
    QSignalSpy inserted(&model->rows(), &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(&model->rows(), &QAbstractItemModel::rowsRemoved);
    readAll();
    EXPECT_EQ(removed.size(), 0);
    EXPECT_GT(inserted.size(), 0);
    const auto after = lines();
    EXPECT_TRUE(std::equal(before.begin(), before.end(), after.begin()));
}

// --- Opening the editor
// ------------------------------------------------------------------------------

TEST_F(Timesheet, editOpensTheEditorOnTheEntryOfTheRow) {
    add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z", "draft");
    model->edit(0);  // a head is no entry
    EXPECT_FALSE(model->editor()->isOpen());
    model->edit(7);
    model->edit(-1);
    EXPECT_FALSE(model->editor()->isOpen());
    model->edit(1);
    EXPECT_TRUE(model->editor()->isOpen());
    EXPECT_EQ(utf8(model->editor()->notes()->text()), "draft");
}

TEST_F(Timesheet, timeIsAddedOnTheDayOfTheRowOrNow) {
    add(website, "2026-03-01T07:00Z", "2026-03-01T08:00Z");
    model->addOnDay(0);
    EXPECT_TRUE(model->editor()->isOpen());
    EXPECT_EQ(timer.calendar.startOfDay(model->editor()->start()->value()),
              test::at("2026-03-01T00:00Z"));
    model->addEntry();
    EXPECT_EQ(timer.calendar.startOfDay(model->editor()->start()->value()),
              test::at("2026-03-02T00:00Z"));
    model->addOnCurrentDay();
    EXPECT_EQ(timer.calendar.startOfDay(model->editor()->start()->value()),
              test::at("2026-03-02T00:00Z"));
    model->selection()->click(1);
    model->addOnCurrentDay();
    EXPECT_EQ(timer.calendar.startOfDay(model->editor()->start()->value()),
              test::at("2026-03-01T00:00Z"));
}

TEST_F(Timesheet, aBilledRowNamesItsInvoice) {
    const auto entry = add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    EXPECT_EQ(utf8(model->billedHelp(1)), "");
    bill(entry, "INV-2026-007");
    EXPECT_TRUE(value(1, Row::isBilled).toBool());
    EXPECT_EQ(utf8(model->billedHelp(1)), "On invoice INV-2026-007");
    EXPECT_EQ(utf8(model->billedHelp(0)), "");
    EXPECT_EQ(utf8(model->billedHelp(99)), "");
}

}  // namespace
}  // namespace elmworth
