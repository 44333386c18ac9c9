// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/PanelModel.h"

#include "support/LibraryTest.h"
#include "support/QtTesting.h"
#include "theme/HexColor.h"

namespace elmworth {
namespace {

using test::utf8;
using Texts = std::vector<std::string>;

class PanelTest : public test::LibraryTest {
 protected:
    PanelModel panel{services()};
    RunningCardModel& card = *panel.running();
    ContinueRowModel& continueRow = *panel.continueRow();
};

// --- the running card ----------------------------------------------------------------------------

TEST_F(PanelTest, theCardShowsTheRunningEntry) {
    EXPECT_FALSE(card.isRunning());
    const auto website = project("Website");
    website->colorHex = "#123456";
    service().start(website);
    EXPECT_TRUE(card.isRunning());
    EXPECT_EQ(utf8(card.projectTitle()), "Website");
    EXPECT_EQ(utf8(card.clientName()), "Acme Co");
    EXPECT_EQ(utf8(colorFromHex(card.projectColor()).name()), "#123456");
    EXPECT_EQ(utf8(card.elapsed()), "0:00:00");
    passTo("10:05:09");
    EXPECT_EQ(utf8(card.elapsed()), "1:05:09");
}

TEST_F(PanelTest, anEntryWithoutProjectHasATintOfItsOwn) {
    service().start(nullptr);
    EXPECT_EQ(utf8(card.projectTitle()), "No project");
    EXPECT_EQ(utf8(card.clientName()), "");
    EXPECT_EQ(colorFromHex(card.projectColor()), QColor(0xFF, 0x5B, 0x87));
}

TEST_F(PanelTest, aColourIsReadAsEverywhere) {
    const auto website = project("Website");
    service().start(website);
    for (const char* text : {"#4F7CFF", "4F7CFF", "#FFF", "red", ""}) {
        website->colorHex = text;
        turn();
        EXPECT_EQ(colorFromHex(card.projectColor()), colorFromHex(QString::fromUtf8(text))) << text;
        EXPECT_EQ(panel.projects()->allRows().at(0).projectColor, colorFromHex(card.projectColor()))
            << text;
    }
}

TEST_F(PanelTest, theElapsedTimeReadsZeroWhileTheTimerGivesNone) {
    EXPECT_EQ(utf8(card.elapsed()), "0:00:00");
    service().start(project("Website"));
    passTo("10:00");
    service().stop();
    EXPECT_EQ(utf8(card.elapsed()), "0:00:00");
}

TEST_F(PanelTest, theCardOfATimerThatRunsAtStartIsThereAtOnce) {
    service().start(project("Website"));
    passTo("09:10");
    PanelModel later{services()};
    EXPECT_TRUE(later.running()->isRunning());
    EXPECT_EQ(utf8(later.running()->elapsed()), "0:10:00");
}

TEST_F(PanelTest, aSwitchShowsInOneStep) {
    service().start(project("Website"));
    Texts names;
    QObject::connect(&card, &RunningCardModel::changed,
                     [&] { names.push_back(utf8(card.projectTitle())); });
    timer.setTime("10:00");
    service().start(project("Blog"));
    turn();
    EXPECT_EQ(names, Texts{"Blog"});
}

TEST_F(PanelTest, anEntryEndedElsewhereLeavesTheCardAtTheNextShow) {
    service().start(project("Website"));
    timer.setTime("10:00");
    service().running()->end = timer.now;
    context().save();
    panel.refresh();
    EXPECT_FALSE(card.isRunning());
    EXPECT_TRUE(continueRow.isShown());
}

TEST_F(PanelTest, aTimerThatIsRefreshedElsewhereShowsInTheNextTurn) {
    service().start(project("Website"));
    timer.setTime("10:00");
    context().deleteRecord(service().running());
    context().save();
    service().refresh();
    turn();
    EXPECT_FALSE(card.isRunning());
}

// --- the notes -----------------------------------------------------------------------------------

TEST_F(PanelTest, typingWritesToTheEntryAtOnceAndDoesNotSave) {
    service().start(project("Website"));
    card.setNotes(QStringLiteral("Draft"));
    EXPECT_EQ(service().running()->notes.get(), "Draft");
    EXPECT_TRUE(context().hasChanges());
    EXPECT_EQ(utf8(card.notes()), "Draft");
}

TEST_F(PanelTest, returnSavesTheNotes) {
    service().start(project("Website"));
    card.setNotes(QStringLiteral("Draft"));
    card.saveNotes();
    EXPECT_FALSE(context().hasChanges());
    timer.restart();
    EXPECT_EQ(timer.service->running()->notes.get(), "Draft");
}

TEST_F(PanelTest, stopKeepsTheNotes) {
    service().start(project("Website"));
    card.setNotes(QStringLiteral("Draft"));
    timer.setTime("10:00");
    card.stop();
    EXPECT_FALSE(card.isRunning());
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(timer.spans(), Texts{"09:00:00-10:00:00"});
    EXPECT_EQ(service().lastContinuableEntry()->notes.get(), "Draft");
}

TEST_F(PanelTest, notesChangedElsewhereShow) {
    service().start(project("Website"));
    card.setNotes(QStringLiteral("Draft"));
    service().running()->notes = "From elsewhere";
    turn();
    EXPECT_EQ(utf8(card.notes()), "From elsewhere");
    service().stop();
    EXPECT_EQ(utf8(card.notes()), "");
}

TEST_F(PanelTest, typingWithNothingRunningWritesNothing) {
    card.setNotes(QStringLiteral("Draft"));
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(utf8(card.notes()), "");
}

TEST_F(PanelTest, aKeystrokeAsksTheLibraryForNothingAndTellsOthersAtOnce) {
    service().start(project("Website"));
    turn();
    int told = 0;
    const auto observation = context().observe(TimeEntry::schema(), [&] { ++told; });
    test::SignalCount signalCount;
    signalCount.watch(panel);
    signalCount.watch(card);
    (void)statements();
    card.setNotes(QStringLiteral("D"));
    turn();
    EXPECT_EQ(statements(), Texts{});
    EXPECT_EQ(told, 1);
    EXPECT_EQ(signalCount.take(),
              (std::map<std::string, int>{{"RunningCardModel::notesChanged", 1}}));
}

TEST_F(PanelTest, whatChangedBeforeAKeystrokeShowsAsWell) {
    const auto website = project("Website");
    service().start(website);
    entry(website, "07:00", "07:30")->end = test::TestTimer::today("08:00");
    website->name = "Shop";
    card.setNotes(QStringLiteral("D"));
    EXPECT_EQ(utf8(card.projectTitle()), "Shop");
    EXPECT_EQ(utf8(panel.today()->text()), "1:00");
}

// --- the continue row ----------------------------------------------------------------------------

TEST_F(PanelTest, continueOffersTheLastEntryWhileNothingRuns) {
    EXPECT_FALSE(continueRow.isShown());
    const auto website = project("Website");
    const auto last = entry(website, "07:00", "08:00");
    EXPECT_TRUE(continueRow.isShown());
    EXPECT_EQ(utf8(continueRow.title()), "Continue Website");
    EXPECT_EQ(utf8(continueRow.subtitle()), "Acme Co");
    last->notes = "Wireframes";
    turn();
    EXPECT_EQ(utf8(continueRow.subtitle()), "Wireframes");
    service().start(website);
    EXPECT_FALSE(continueRow.isShown());
}

TEST_F(PanelTest, notesOfSeveralLinesStandInOneUnderContinue) {
    const auto last = entry(project("Website"), "07:00", "08:00");
    last->notes = "Logo\nColours,\r\n\n  type\u2028Grid\n";
    turn();
    EXPECT_EQ(utf8(continueRow.subtitle()), "Logo Colours, type Grid");
    last->notes = " \n";
    turn();
    EXPECT_EQ(utf8(continueRow.subtitle()), "Acme Co");
}

TEST_F(PanelTest, withoutNotesAndClientNothingStandsUnderContinue) {
    entry(project("Own", nullptr), "07:00", "08:00");
    EXPECT_TRUE(continueRow.isShown());
    EXPECT_EQ(utf8(continueRow.subtitle()), "");
}

TEST_F(PanelTest, anEntryOfAnArchivedProjectIsNotOffered) {
    const auto website = project("Website");
    entry(website, "07:00", "08:00");
    website->isArchived = true;
    context().save();
    EXPECT_FALSE(continueRow.isShown());
}

TEST_F(PanelTest, continueTakesTheEntryThatIsTheLastByThen) {
    entry(project("Website"), "06:00", "07:00");
    const auto blog = project("Blog");
    timer.library.addEntry(blog, test::TestTimer::today("07:00"), test::TestTimer::today("08:00"))
        ->notes = "Post";
    EXPECT_EQ(utf8(continueRow.title()), "Continue Website");  // not told of the other yet
    continueRow.continueEntry();
    EXPECT_EQ(service().running()->project.get(), blog);
    EXPECT_EQ(service().running()->notes.get(), "Post");
}

TEST_F(PanelTest, continueWithNothingFinishedDoesNothing) {
    continueRow.continueEntry();
    EXPECT_FALSE(service().running());
}

// --- the tick ------------------------------------------------------------------------------------

class PanelTickTest : public PanelTest {
 protected:
    PanelTickTest() {
        defaults.setInteger("weeklyGoalHours", 40);
        const auto website = project("Website");
        website->budgetHours = 10;
        entry(website, "06:00", "06:30");
        service().start(website);
        panel.refresh();
        turn();
        for (const QObject* object : std::initializer_list<const QObject*>{
                 &panel, &card, &continueRow, card.budget(), card.warning(), card.away(),
                 panel.today(), panel.weeklyGoal(), panel.projects(),
                 panel.projects()->rowsModel()}) {
            counts.watch(*object);
        }
        (void)statements();
    }
    using Counts = std::map<std::string, int>;
    test::SignalCount counts;
};

TEST_F(PanelTickTest, oneTickTellsOfTheElapsedTimeAlone) {
    pass(1);
    EXPECT_EQ(counts.take(), (Counts{{"RunningCardModel::elapsedChanged", 1}}));
}

TEST_F(PanelTickTest, aMinuteOfTicksTellsOnceOfEachTotal) {
    pass(60);
    EXPECT_EQ(counts.take(), (Counts{{"RunningCardModel::elapsedChanged", 60},
                                     {"TodayChipModel::textChanged", 1},
                                     {"WeeklyGoalBarModel::changed", 1}}));
}

TEST_F(PanelTickTest, anHourOfTicksAsksTheLibraryForNothing) {
    pass(3600);
    EXPECT_EQ(statements(), Texts{});
    EXPECT_EQ(utf8(panel.today()->text()), "1:30");
    EXPECT_EQ(utf8(panel.weeklyGoal()->text()), "1:30 of 40h");
}

TEST_F(PanelTickTest, nothingIsToldWhileNothingRuns) {
    card.stop();
    turn();
    (void)counts.take();
    pass(120);
    EXPECT_EQ(counts.take(), Counts{});
}

// --- the footer ----------------------------------------------------------------------------------

TEST_F(PanelTest, theFooterAsksForWindowsAndNamesTheirSection) {
    test::SignalCount counts;
    counts.watch(panel);
    panel.openElmworth();
    EXPECT_EQ(defaults.string("mainSection"), "Timesheet");
    panel.createProject();
    EXPECT_EQ(defaults.string("mainSection"), "Clients");
    panel.openPanel();
    panel.openSettings();
    panel.quit();
    EXPECT_EQ(counts.take(), (std::map<std::string, int>{
                                 {"PanelModel::mainWindowRequested", 2},
                                 {"PanelModel::panelRequested", 1},
                                 {"PanelModel::settingsRequested", 1},
                                 {"PanelModel::quitRequested", 1},
                             }));
}

}  // namespace
}  // namespace elmworth
