// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The menu of a row, also when its entry changes while it is open.

#include <gmock/gmock.h>

#include <QSignalSpy>

#include "screens/timesheet/TimesheetTest.h"

namespace elmworth {
namespace {

using test::utf8;
using testing::ElementsAre;

class TimesheetMenu : public test::TimesheetTest {
 protected:
    [[nodiscard]] bool exists(const Ref<TimeEntry>& entry) {
        return context().record<TimeEntry>(entry->id()) != nullptr;
    }

    Ref<TimeEntry> a = add(website, "2026-03-02T06:00Z", "2026-03-02T06:30Z", "a");
    Ref<TimeEntry> b = add(website, "2026-03-02T07:00Z", "2026-03-02T07:30Z", "b");
    Ref<TimeEntry> c = add(nullptr, "2026-03-01T07:00Z", "2026-03-01T07:30Z", "c");
};

TEST_F(TimesheetMenu, opensOnEntriesAlone) {
    EXPECT_FALSE(model->openMenu(0));
    EXPECT_FALSE(model->openMenu(-1));
    EXPECT_FALSE(model->openMenu(99));
    EXPECT_TRUE(model->openMenu(1));
}

TEST_F(TimesheetMenu, offersToContinueWhatIsFinishedAndHasAProject) {
    model->openMenu(rowOf(a));
    EXPECT_TRUE(model->menu()->offersContinue());
    model->openMenu(rowOf(c));
    EXPECT_FALSE(model->menu()->offersContinue());
    service().start(website);
    turn();
    model->openMenu(rowOf(service().running()));
    EXPECT_FALSE(model->menu()->offersContinue());
    EXPECT_TRUE(model->menu()->offersMove());
}

TEST_F(TimesheetMenu, offersNoMoveOfBilledTime) {
    bill(a);
    model->openMenu(rowOf(a));
    EXPECT_FALSE(model->menu()->offersMove());
    EXPECT_TRUE(model->menu()->offersContinue());
    model->openMenu(rowOf(b));
    EXPECT_TRUE(model->menu()->offersMove());
}

TEST_F(TimesheetMenu, offersTheProjectsThatAreNotArchivedByNameWithTheirClients) {
    project("own", nullptr);
    project("Archived")->isArchived = true;
    context().save();
    model->openMenu(rowOf(a));
    EXPECT_THAT(texts(*model->menu()->projects()),
                ElementsAre("own", "Shop — Globex", "Website — Acme Co"));
}

TEST_F(TimesheetMenu, ofFourHundredProjectsFindsOneByItsClientToo) {
    for (int i = 1; i <= 400; ++i) {
        timer.library.addProject("Project " + std::to_string(i), i == 7 ? acme : globex);
    }
    context().save();
    model->openMenu(rowOf(a));
    EXPECT_EQ(model->menu()->projects()->rows().size(), 402U);
    model->menu()->projects()->setSearch(QStringLiteral("acme"));
    EXPECT_THAT(texts(*model->menu()->projects()),
                ElementsAre("Project 7 — Acme Co", "Website — Acme Co"));
    model->menu()->projects()->choose(0);
    EXPECT_EQ(a->project->name.get(), "Project 7");
    EXPECT_EQ(model->menu()->projects()->rows().size(), 402U);
}

TEST_F(TimesheetMenu, actsOnItsRowAloneWhenThatIsNotSelected) {
    click(b);
    model->openMenu(rowOf(a));
    model->menu()->remove();
    EXPECT_FALSE(exists(a));
    EXPECT_TRUE(exists(b));
}

TEST_F(TimesheetMenu, actsOnAllThatIsSelectedWhenItsRowIs) {
    click(a);
    click(c, Qt::ControlModifier);
    model->openMenu(rowOf(c));
    choose(*model->menu()->projects(), "Shop — Globex");
    EXPECT_EQ(a->project.get(), shop);
    EXPECT_EQ(c->project.get(), shop);
    EXPECT_EQ(b->project.get(), website);
    EXPECT_EQ(selectedCount(), 2U) << "a move keeps the selection";
    model->openMenu(rowOf(a));
    model->menu()->remove();
    EXPECT_FALSE(exists(a));
    EXPECT_FALSE(exists(c));
    EXPECT_FALSE(confirmation.isOpen()) << "the menu does not ask";
}

TEST_F(TimesheetMenu, editDuplicateAndContinueActOnItsRowAlone) {
    click(a);
    click(b, Qt::ControlModifier);
    model->openMenu(rowOf(b));
    model->menu()->edit();
    EXPECT_EQ(utf8(model->editor()->notes()->text()), "b");
    model->menu()->duplicate();
    EXPECT_EQ(entryCount(), 4U);
    model->menu()->continueEntry();
    EXPECT_EQ(entryCount(), 5U);
    EXPECT_EQ(service().running()->notes.get(), "b");
}

TEST_F(TimesheetMenu, keepsToItsEntriesWhenTheSelectionChanges) {
    click(a);
    click(b, Qt::ControlModifier);
    model->openMenu(rowOf(a));
    filter().setSearch(QStringLiteral("c"));
    EXPECT_EQ(selectedCount(), 0U);
    model->menu()->remove();
    EXPECT_FALSE(exists(a));
    EXPECT_FALSE(exists(b));
    EXPECT_TRUE(exists(c));
}

TEST_F(TimesheetMenu, onAnEntryThatIsThenDeletedElsewhereDoesNothing) {
    model->openMenu(rowOf(a));
    deleteElsewhere(a);
    click(b);
    const auto count = entryCount();
    model->menu()->edit();
    model->menu()->continueEntry();
    model->menu()->duplicate();
    choose(*model->menu()->projects(), "Shop — Globex");
    model->menu()->remove();
    EXPECT_FALSE(model->editor()->isOpen());
    EXPECT_EQ(service().running(), nullptr);
    EXPECT_EQ(entryCount(), count);
    EXPECT_TRUE(isSelected(b));
    EXPECT_EQ(utf8(undoing.notice()), "");
}

TEST_F(TimesheetMenu, onAnEntryThatIsThenBilledElsewhereLeavesItAndTells) {
    model->openMenu(rowOf(a));
    bill(a);
    QSignalSpy billed(&commands(), &EntryCommandsModel::billedNotice);
    choose(*model->menu()->projects(), "Shop — Globex");
    EXPECT_EQ(a->project.get(), website);
    EXPECT_EQ(billed.size(), 1);
    model->menu()->remove();
    EXPECT_TRUE(exists(a));
    EXPECT_EQ(billed.size(), 2);
    model->menu()->edit();
    EXPECT_TRUE(model->editor()->isBilled());
}

TEST_F(TimesheetMenu, ofAProjectThatIsThenDeletedElsewhereMovesNothingAndSaysSo) {
    model->openMenu(rowOf(a));
    deleteElsewhere(shop);
    turn();
    choose(*model->menu()->projects(),
           "Shop — Globex");  // the menu is open, and shows what it showed
    EXPECT_EQ(a->project.get(), website);
    EXPECT_FALSE(undoing.canUndo());
    EXPECT_EQ(utf8(undoing.notice()),
              "The project was deleted meanwhile. Nothing was moved: choose another one.");
}

TEST_F(TimesheetMenu, onAnEntryThatLosesItsProjectContinuesNothing) {
    model->openMenu(rowOf(a));
    a->project = nullptr;
    context().save();
    model->menu()->continueEntry();
    EXPECT_EQ(service().running(), nullptr);
    EXPECT_FALSE(undoing.canUndo());
}

TEST_F(TimesheetMenu, continueOfARowNeedsAnEntry) {
    model->continueEntry(0);
    model->continueEntry(99);
    EXPECT_EQ(service().running(), nullptr);
    model->continueEntry(rowOf(b));
    ASSERT_NE(service().running(), nullptr);
    EXPECT_EQ(service().running()->notes.get(), "b");
}

}  // namespace
}  // namespace elmworth
