// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What can be done to projects in their section.

#include "screens/projects/ProjectsModel.h"

#include "screens/projects/ProjectsTest.h"
#include "support/FileSizeLimit.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::Lines;
using test::utf8;

class ProjectCommands : public test::ProjectsTest {
 protected:
    void askToDelete(const Ref<Project>& project) { model.askToDelete(rowOf(project)); }
};

// --- the timer -----------------------------------------------------------------------------------

TEST_F(ProjectCommands, startBeginsATimerWithoutNotes) {
    model.start(rowOf(website));
    ASSERT_TRUE(service().running());
    EXPECT_EQ(service().running()->project.get(), website);
    EXPECT_EQ(service().running()->notes.get(), "");
}

TEST_F(ProjectCommands, anArchivedOneIsNotStarted) {
    archive(website);
    model.setShowsArchived(true);
    model.start(rowOf(website));
    EXPECT_FALSE(service().running());
    model.toggleTimer(rowOf(website));
    EXPECT_FALSE(service().running());
}

TEST_F(ProjectCommands, toggleStartsAndStops) {
    model.toggleTimer(rowOf(website));
    EXPECT_TRUE(service().running());
    timer.setTime("10:00");
    model.toggleTimer(rowOf(website));
    EXPECT_FALSE(service().running());
    EXPECT_EQ(timer.spans(), Lines{"09:00:00-10:00:00"});
}

TEST_F(ProjectCommands, toggleStopsAnArchivedOneThatStillRuns) {
    service().start(website);
    archive(website);
    model.setShowsArchived(true);
    EXPECT_TRUE(value(rowOf(website), Rows::isRunning).toBool());
    timer.setTime("10:00");
    model.toggleTimer(rowOf(website));
    EXPECT_FALSE(service().running());
}

TEST_F(ProjectCommands, startCostsWhatTheTimerTakes) {
    for (int row = 0; row < 3; ++row) (void)textAt(row, Rows::summary);
    (void)test::StatementTrace::take();
    service().start(appProject);
    turn();
    const auto bare = test::StatementTrace::take().size();
    timer.setTime("10:00");
    service().stop();
    turn();
    (void)test::StatementTrace::take();
    model.start(rowOf(appProject));
    turn();
    EXPECT_LE(test::StatementTrace::take().size(), bare);
}

TEST_F(ProjectCommands, headsAndRowsThatAreNotThereDoNothing) {
    for (const int row : {-1, 0, 99}) {
        model.start(row);
        model.toggleTimer(row);
        model.edit(row);
        model.askToDelete(row);
        EXPECT_FALSE(model.openMenu(row));
    }
    EXPECT_FALSE(service().running());
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(question(), "");
}

// --- archive -------------------------------------------------------------------------------------

TEST_F(ProjectCommands, archiveHidesItAndSaysSo) {
    ASSERT_TRUE(model.openMenu(rowOf(website)));
    EXPECT_FALSE(model.menuUnarchives());
    model.menuArchive();
    EXPECT_TRUE(website->isArchived);
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  App"}));
    EXPECT_EQ(told, "Archived Website.");
    EXPECT_EQ(timer.history->undoText(), "Undo Archive Website");
    timer.history->undo();
    turn();
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  App", "  Website"}));
}

TEST_F(ProjectCommands, unarchiveBringsItBack) {
    archive(website);
    model.setShowsArchived(true);
    ASSERT_TRUE(model.openMenu(rowOf(website)));
    EXPECT_TRUE(model.menuUnarchives());
    model.menuArchive();
    EXPECT_FALSE(website->isArchived);
    EXPECT_EQ(told, "");
}

TEST_F(ProjectCommands, theMenuDoesWhatItSaidWhateverHappensMeanwhile) {
    ASSERT_TRUE(model.openMenu(rowOf(website)));
    archive(website);
    model.menuArchive();
    EXPECT_TRUE(website->isArchived) << "it said Archive";
    remove(website);
    model.menuArchive();
    model.menuDelete();
    model.menuEdit();
    EXPECT_EQ(question(), "");
    EXPECT_FALSE(editor.isOpen());
    EXPECT_EQ(failure, "");
}

TEST_F(ProjectCommands, anArchivingThatCannotBeSavedIsNotDoneAndSaysSo) {
    ASSERT_TRUE(model.openMenu(rowOf(website)));
    {
        const test::FileSizeLimit fullDisk(0);
        model.menuArchive();
    }
    EXPECT_FALSE(website->isArchived);
    EXPECT_FALSE(context().hasChanges());
    EXPECT_TRUE(failure.starts_with("The library can't be changed: ")) << failure;
    EXPECT_TRUE(failure.ends_with(". Nothing was changed.")) << failure;
    EXPECT_EQ(told, "");
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  App", "  Website"}));
}

// --- delete --------------------------------------------------------------------------------------

struct CountRow {
    const char* name;
    int entries;
    const char* message;
};

class DeletedEntries : public ProjectCommands, public testing::WithParamInterface<CountRow> {};

TEST_P(DeletedEntries, areCounted) {
    for (int i = 0; i < GetParam().entries; ++i) entry(website, "07:00", "08:00");
    askToDelete(website);
    EXPECT_EQ(question(),
              std::string("Delete Website? | ") + GetParam().message + " | Delete Project");
    EXPECT_TRUE(confirmation.isDestructive());
    confirmation.accept();
    turn();
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  App"}));
    EXPECT_EQ(entryCount(), 0U);
    EXPECT_EQ(told, "Deleted Website.");
}

INSTANTIATE_TEST_SUITE_P(, DeletedEntries,
                         testing::Values(CountRow{"none", 0, "This deletes its 0 time entries."},
                                         CountRow{"one", 1, "This deletes its 1 time entry."},
                                         CountRow{"two", 2, "This deletes its 2 time entries."}),
                         test::rowName);

TEST_F(ProjectCommands, aDeletionCanBeUndoneWithAllItsTime) {
    entry(website, "07:00", "08:00");
    askToDelete(website);
    confirmation.accept();
    turn();
    timer.history->undo();
    turn();
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  App", "  Website"}));
    EXPECT_EQ(textAt(2, Rows::time), "1:00 tracked · 1:00 unbilled");
    timer.history->redo();
    turn();
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  App"}));
}

TEST_F(ProjectCommands, aRefusedDeletionChangesNothing) {
    entry(website, "07:00", "08:00");
    askToDelete(website);
    confirmation.reject();
    EXPECT_EQ(entryCount(), 1U);
    EXPECT_FALSE(timer.history->canUndo());
}

TEST_F(ProjectCommands, oneBilledEntryAmongManyArchivesAndTouchesNone) {
    entry(website, "05:00", "06:00");
    bill(entry(website, "06:00", "07:00"));
    entry(website, "07:00", "08:00");
    askToDelete(website);
    EXPECT_EQ(question(),
              "Delete Website? | It has invoiced time, so it will be archived instead of deleted "
              "to keep your invoices intact. | Archive Project");
    confirmation.accept();
    EXPECT_TRUE(website->isArchived);
    EXPECT_EQ(entryCount(), 3U);
    EXPECT_EQ(told, "Archived Website.");
}

TEST_F(ProjectCommands, invoicedWhileTheQuestionStandsItIsArchived) {
    const auto work = entry(website, "07:00", "08:00");
    askToDelete(website);
    bill(work);
    confirmation.accept();
    EXPECT_FALSE(website->isDeleted());
    EXPECT_TRUE(website->isArchived);
    EXPECT_EQ(told, "Archived Website.");
}

TEST_F(ProjectCommands, whatWasToBeArchivedIsNotDeletedWhenItsInvoiceIsGone) {
    const auto work = entry(website, "07:00", "08:00");
    bill(work);
    askToDelete(website);
    work->invoice = nullptr;
    save();
    confirmation.accept();
    EXPECT_FALSE(website->isDeleted());
    EXPECT_TRUE(website->isArchived);
    EXPECT_EQ(entryCount(), 1U);
}

TEST_F(ProjectCommands, deletedElsewhereWhileTheQuestionStandsNothingIsLeftToDo) {
    askToDelete(website);
    remove(website);
    confirmation.accept();
    EXPECT_EQ(failure, "");
    EXPECT_EQ(told, "");
}

TEST_F(ProjectCommands, aDeletionThatCannotBeSavedIsNotDoneAndSaysSo) {
    entry(website, "07:00", "08:00");
    askToDelete(website);
    {
        const test::FileSizeLimit fullDisk(0);
        confirmation.accept();
    }
    EXPECT_FALSE(website->isDeleted());
    EXPECT_EQ(entryCount(), 1U);
    EXPECT_TRUE(failure.ends_with(". Nothing was changed.")) << failure;
    EXPECT_EQ(told, "");
}

TEST_F(ProjectCommands, afterADeletionTheArrowsGoOnFromThere) {
    project("Blog", acme);
    const auto shop = project("Shop", acme);
    click(shop);
    model.askToDelete(model.selection()->currentRow());
    confirmation.accept();
    turn();
    EXPECT_EQ(current(), "");
    model.selection()->moveCurrent(1);
    EXPECT_EQ(current(), "Website");
}

// --- the editor ----------------------------------------------------------------------------------

TEST_F(ProjectCommands, editOpensTheEditorOnTheProject) {
    model.edit(rowOf(website));
    EXPECT_TRUE(editor.isOpen());
    EXPECT_EQ(utf8(editor.name()->text()), "Website");
}

TEST_F(ProjectCommands, theMenuEditsItsProject) {
    ASSERT_TRUE(model.openMenu(rowOf(appProject)));
    model.menuEdit();
    EXPECT_EQ(utf8(editor.name()->text()), "App");
}

TEST_F(ProjectCommands, aNewProjectIsSelectedAndBroughtIntoView) {
    model.add();
    editor.name()->setText(QStringLiteral("Shop"));
    editor.save();
    turn();
    EXPECT_EQ(lines(), (Lines{"Acme Co", "  App", "  Shop", "  Website"}));
    EXPECT_EQ(current(), "Shop");
    EXPECT_EQ(revealed, 2);
}

TEST_F(ProjectCommands, aSearchThatHidesTheNewProjectIsOver) {
    model.setSearch(QStringLiteral("web"));
    model.add();
    editor.name()->setText(QStringLiteral("Web shop"));
    editor.save();
    EXPECT_EQ(utf8(model.search()), "web") << "it finds this one";
    model.add();
    editor.name()->setText(QStringLiteral("Shop"));
    editor.save();
    EXPECT_EQ(utf8(model.search()), "");
    EXPECT_EQ(current(), "Shop");
}

TEST(ProjectColor, isDrawnFromThePalette) {
    for (int i = 0; i < 50; ++i) EXPECT_LT(drawRandom(9), 9U);
}

}  // namespace
}  // namespace elmworth
