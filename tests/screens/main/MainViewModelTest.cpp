// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/main/MainViewModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "support/FailingReads.h"
#include "support/LibraryTest.h"
#include "support/ScopedEnvironment.h"
#include "support/TestOutlets.h"

namespace elmworth {
namespace {

class MainView : public test::LibraryTest {
 protected:
    [[nodiscard]] std::string stored() { return defaults.string("mainSection").value_or("none"); }

    test::NumberPainter painter;
    test::NotingFiles files;
    MainViewModel model{services(), {painter, files}};
};

TEST_F(MainView, showsTheTimesheetAtFirst) {
    EXPECT_EQ(model.section(), 0);
    EXPECT_EQ(stored(), "none");
}

TEST_F(MainView, offersToUndoWhatWasDoneAnywhere) {
    const auto website = timer.library.addProject("Website", nullptr);
    context().save();
    EXPECT_FALSE(model.history()->canUndo());
    timer.history->perform("Archive Website", [&] { website->isArchived = true; });
    EXPECT_EQ(model.history()->undoText().toStdString(), "Undo Archive Website");
    model.history()->undo();
    EXPECT_FALSE(website->isArchived);
    EXPECT_EQ(model.history()->redoText().toStdString(), "Redo Archive Website");
    EXPECT_EQ(model.history()->notice().toStdString(), "");
    timer.history->perform("Rename Website", [&] { website->name = "Site"; });
    website->name = "Shop";
    model.history()->undo();
    EXPECT_EQ(model.history()->notice().toStdString(),
              "1 project was changed since and stays as it is.");
}

TEST_F(MainView, saysWhatASectionTookAwayAndOffersToUndoIt) {
    const auto acme = timer.library.addClient("Acme Co");
    const auto website = timer.library.addProject("Website", acme);
    context().save();
    model.projects()->setShown(true);
    model.projects()->askToDelete(1);
    model.confirmation()->accept();
    EXPECT_EQ(model.history()->notice().toStdString(), "Deleted Website.");
    EXPECT_TRUE(model.history()->noticeOffersUndo());
    Q_EMIT model.projects()->failed(QStringLiteral("It failed."));
    EXPECT_EQ(model.history()->notice().toStdString(), "It failed.");
    EXPECT_FALSE(model.history()->noticeOffersUndo());
}

TEST_F(MainView, saysWhenAStopKeepsNothingAsTheClockWasSetBack) {
    const auto website = timer.library.addProject("Website", nullptr);
    context().save();
    timer.service->setHistory(*timer.history);
    timer.service->start(website);
    timer.service->stop();
    EXPECT_EQ(model.history()->notice().toStdString(), "") << "it was an accident";
    timer.service->start(website);
    timer.now -= std::chrono::hours(1);
    timer.service->stop();
    EXPECT_EQ(model.history()->notice().toStdString(),
              "The clock stands before the start of what ran, so nothing was kept.");
    EXPECT_TRUE(model.history()->noticeOffersUndo());
    model.history()->undo();
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 1U);
}

TEST_F(MainView, anUnknownSectionShowsTheTimesheetAndStaysStored) {
    for (const char* text : {"", "timesheet", "Reports", "Clients "}) {
        defaults.setString("mainSection", text);
        EXPECT_EQ(model.section(), 0) << text;
        EXPECT_EQ(stored(), text);
    }
}

TEST_F(MainView, choosingASectionWritesItsName) {
    const std::vector<std::string> names{"Timesheet", "Clients", "Projects", "Invoices"};
    for (int position = 3; position >= 0; --position) {
        model.showSection(position);
        EXPECT_EQ(stored(), names[static_cast<std::size_t>(position)]);
        EXPECT_EQ(model.section(), position);
    }
}

TEST_F(MainView, aSectionThatIsNotThereIsNotShown) {
    model.showSection(2);
    model.showSection(4);
    model.showSection(-1);
    EXPECT_EQ(stored(), "Projects");
}

TEST_F(MainView, aNewInvoiceIsAskedForAmongTheInvoices) {
    model.openNewInvoice();
    EXPECT_EQ(stored(), "Invoices");
    EXPECT_TRUE(model.newInvoice()->isOpen());
}

TEST_F(MainView, noSheetComesOverAnother) {
    model.welcome()->greet();
    ASSERT_TRUE(model.welcome()->isOpen());
    model.openNewInvoice();
    EXPECT_EQ(stored(), "none");
    EXPECT_FALSE(model.newInvoice()->isOpen());
}

TEST_F(MainView, followsWhoeverWritesTheSection) {
    QSignalSpy changed(&model, &MainViewModel::sectionChanged);
    defaults.setString("mainSection", "Invoices");
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(model.section(), 3);
    defaults.setString("menuBarStyle", "icon");
    EXPECT_EQ(changed.size(), 1);
}

TEST_F(MainView, sectionsAreInOrderWithTheirShortcuts) {
    SidebarModel& sections = *model.sections();
    const QAbstractItemModelTester tester(&sections);
    std::vector<std::string> rows;
    for (int row = 0; row < sections.rowCount(); ++row) {
        const auto text = [&](SidebarModel::Role role) {
            return sections.data(sections.index(row), role).toString().toStdString();
        };
        rows.push_back(text(SidebarModel::TitleRole) + ' ' + text(SidebarModel::IconRole) + ' ' +
                       text(SidebarModel::ShortcutRole));
    }
    EXPECT_EQ(rows, (std::vector<std::string>{
                        "Timesheet clock-filled Ctrl+1", "Clients people-filled Ctrl+2",
                        "Projects folder-filled Ctrl+3", "Invoices document Ctrl+4"}));
}

TEST_F(MainView, resumingWithNothingFinishedDoesNothing) {
    model.resumeLastEntry();
    EXPECT_TRUE(timer.spans().empty());
}

TEST_F(MainView, resumesTheLastEntry) {
    service().start(timer.library.addProject("Website", nullptr), "Logo");
    timer.setTime("10:00");
    model.stopTimer();
    timer.setTime("11:00");
    model.resumeLastEntry();
    EXPECT_EQ(timer.spans(), (std::vector<std::string>{"09:00:00-10:00:00", "11:00:00-"}));
    EXPECT_EQ(model.running()->notes(), QStringLiteral("Logo"));
    model.resumeLastEntry();
    EXPECT_EQ(timer.spans().size(), 2U);
}

TEST_F(MainView, stopsLikeEveryOtherStop) {
    service().start(timer.library.addProject("Website", nullptr));
    timer.setTime("09:30");
    model.stopTimer();
    model.stopTimer();
    EXPECT_EQ(timer.spans(), std::vector<std::string>{"09:00:00-09:30:00"});
}

TEST_F(MainView, theHelpOfTheStopButtonNamesItsKeys) {
    EXPECT_EQ(MainViewModel::stopHelp(), QStringLiteral("Stop timer (Ctrl+Alt+.)"));
}

TEST_F(MainView, looksForNoUpdatesWithoutAFeed) {
    EXPECT_FALSE(model.canCheckForUpdates());
    model.checkForUpdates();
    EXPECT_FALSE(model.confirmation()->isOpen());
}

/// A library on a disk that gives out under the window.
class MainViewOfADamagedLibrary : private test::FailingReads, public MainView {};

TEST_F(MainViewOfADamagedLibrary, saysSoInOneLineOnceARecordCannotBeRead) {
    const test::ScopedEnvironment data("XDG_DATA_HOME", "/home/ada/data");
    QSignalSpy changed(&model, &MainViewModel::libraryProblemChanged);
    EXPECT_EQ(model.libraryProblem(), QString());
    test::FailingReads::fail();
    EXPECT_TRUE(context().fetchQuietly<Project>().empty());
    test::FailingReads::heal();
    timer.library.runLoop.turn();
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(model.libraryProblem(),
              QStringLiteral("Part of the library can't be read. Snapshots of it are in "
                             "\u201C/home/ada/data/Elmworth/Backups\u201D. In a terminal, elmworth "
                             "check names what is damaged, and elmworth recover FOLDER writes what "
                             "can be read into a new library."));
}

}  // namespace
}  // namespace elmworth
