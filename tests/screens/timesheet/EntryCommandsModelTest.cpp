// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/EntryCommandsModel.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

#include "screens/timesheet/TimesheetTest.h"
#include "support/FailingReads.h"

namespace elmworth {
namespace {

using test::iso;
using test::utf8;

class EntryCommands : private test::FailingReads, public test::TimesheetTest {
 protected:
    [[nodiscard]] static EntryCommandsModel::IDs ids(
        std::initializer_list<Ref<TimeEntry>> entries) {
        EntryCommandsModel::IDs ids;
        for (const auto& entry : entries) ids.push_back(entry->id());
        return ids;
    }
    [[nodiscard]] bool exists(const Ref<TimeEntry>& entry) {
        return context().record<TimeEntry>(entry->id()) != nullptr;
    }
    Ref<TimeEntry> a = add(website, "2026-03-02T06:00Z", "2026-03-02T06:30Z", "a");
    Ref<TimeEntry> b = add(website, "2026-03-02T07:00Z", "2026-03-02T07:30Z", "b");
    Ref<TimeEntry> billed = add(website, "2026-03-01T07:00Z", "2026-03-01T07:30Z", "billed");
    QSignalSpy billedNotices{&commands(), &EntryCommandsModel::billedNotice};
};

TEST_F(EntryCommands, deleteOfOneBilledAndTwoUnbilledDeletesTheTwoAndTellsOfTheOne) {
    bill(billed);
    click(a);
    commands().deleteEntries(ids({a, billed, b}));
    EXPECT_FALSE(exists(a));
    EXPECT_FALSE(exists(b));
    EXPECT_TRUE(exists(billed));
    EXPECT_EQ(billedNotices.size(), 1);
    EXPECT_EQ(utf8(undoing.notice()), "Deleted 2 entries.");
    EXPECT_TRUE(undoing.noticeOffersUndo());
    EXPECT_EQ(selectedCount(), 0U);
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(EntryCommands, deleteOfBilledTimeAloneTellsAndOffersNoUndo) {
    bill(billed);
    commands().deleteEntries(ids({billed}));
    EXPECT_TRUE(exists(billed));
    EXPECT_EQ(billedNotices.size(), 1);
    EXPECT_EQ(utf8(undoing.notice()), "");
    EXPECT_FALSE(undoing.canUndo());
}

TEST_F(EntryCommands, deleteOfWhatIsGoneDoesNothingAndLeavesTheSelection) {
    click(b);
    deleteElsewhere(a);
    commands().deleteEntries(ids({a}));
    commands().deleteEntries({});
    EXPECT_EQ(billedNotices.size(), 0);
    EXPECT_EQ(utf8(undoing.notice()), "");
    EXPECT_TRUE(isSelected(b));
    EXPECT_FALSE(undoing.canUndo());
}

TEST_F(EntryCommands, deleteIsUndoneAndRedone) {
    commands().deleteEntries(ids({a, b}));
    EXPECT_EQ(utf8(undoing.undoText()), "Undo Delete 2 Entries");
    undoing.undo();
    EXPECT_EQ(utf8(undoing.notice()), "") << "the notice of the deletion is over";
    EXPECT_EQ(rowCount(), 5);
    EXPECT_FALSE(undoing.canUndo());
    ASSERT_TRUE(undoing.canRedo());
    undoing.redo();
    EXPECT_EQ(rowCount(), 2);
}

TEST_F(EntryCommands, theNoticeOfADeletionGoesWhenItIsNoLongerTheNewestStep) {
    commands().deleteEntries(ids({a}));
    commands().moveEntries(ids({b}), shop->id());
    EXPECT_EQ(utf8(undoing.notice()), "") << "its undo would take the move back";
    EXPECT_FALSE(undoing.noticeOffersUndo());
    commands().deleteEntries(ids({b}));
    EXPECT_EQ(utf8(undoing.notice()), "Deleted 1 entry.");
    commands().deleteEntries(ids({billed}));
    EXPECT_EQ(utf8(undoing.notice()), "Deleted 1 entry.");
    EXPECT_TRUE(undoing.noticeOffersUndo());
}

TEST_F(EntryCommands, undoSaysWhatItHadToLeaveAlone) {
    commands().moveEntries(ids({a}), shop->id());
    bill(a);
    undoing.undo();
    EXPECT_EQ(a->project.get(), shop);
    EXPECT_EQ(utf8(undoing.notice()), "1 entry is on an invoice and stays as it is.");
    EXPECT_FALSE(undoing.noticeOffersUndo());
    undoing.dismissNotice();
    EXPECT_EQ(utf8(undoing.notice()), "");
}

TEST_F(EntryCommands, moveTakesTheUnbilledAndTellsOfTheOthers) {
    bill(billed);
    commands().moveEntries(ids({a, billed}), shop->id());
    EXPECT_EQ(a->project.get(), shop);
    EXPECT_EQ(billed->project.get(), website);
    EXPECT_EQ(billedNotices.size(), 1);
    EXPECT_FALSE(context().hasChanges());
    commands().moveEntries(ids({b}), shop->id());
    EXPECT_EQ(billedNotices.size(), 1);
}

TEST_F(EntryCommands, moveToAProjectThatWasDeletedElsewhereMovesNothingAndSaysSo) {
    const auto gone = project("Gone");
    deleteElsewhere(gone);
    commands().moveEntries(ids({a}), gone->id());
    EXPECT_EQ(a->project.get(), website);
    EXPECT_EQ(utf8(undoing.notice()),
              "The project was deleted meanwhile. Nothing was moved: choose another one.");
    EXPECT_FALSE(undoing.canUndo());
}

TEST_F(EntryCommands, duplicateNeverEndsInTheFuture) {
    timer.setTime("10:00");
    const auto day = add(shop, "2026-02-20T09:00Z", "2026-02-20T17:00Z", "long");
    commands().duplicateToToday(day->id());
    const auto made = context().fetch(
        Query<TimeEntry>{.predicate = key<&TimeEntry::start>() == test::at("2026-03-02T02:00Z")});
    ASSERT_EQ(made.size(), 1U);
    EXPECT_EQ(iso(*made[0]->end.get()), "2026-03-02T10:00:00Z");
    EXPECT_EQ(made[0]->notes.get(), "long");
    EXPECT_EQ(made[0]->project.get(), shop);
    EXPECT_EQ(utf8(undoing.undoText()), "Undo Duplicate to Today");
}

TEST_F(EntryCommands, onAnEntryThatIsGoneNothingHappens) {
    deleteElsewhere(a);
    const auto count = entryCount();
    commands().duplicateToToday(a->id());
    commands().continueEntry(a->id());
    commands().moveEntries(ids({a}), shop->id());
    EXPECT_EQ(entryCount(), count);
    EXPECT_EQ(service().running(), nullptr);
    EXPECT_FALSE(undoing.canUndo());
    EXPECT_EQ(utf8(undoing.notice()), "");
}

TEST_F(EntryCommands, continueStartsTheTimerWithTheProjectAndNotes) {
    commands().continueEntry(a->id());
    ASSERT_NE(service().running(), nullptr);
    EXPECT_EQ(service().running()->project.get(), website);
    EXPECT_EQ(service().running()->notes.get(), "a");
    EXPECT_TRUE(undoing.canUndo());
}

TEST_F(EntryCommands, inALibraryThatCannotBeReadSayOneSentenceAndChangeNothing) {
    const auto entry = ids({a});
    a.reset();  // so that it must be read again
    const auto expectRefusal = [this](const char* what) {
        EXPECT_EQ(utf8(undoing.notice()), "The library can't be read. Nothing was changed.")
            << what;
        EXPECT_FALSE(undoing.noticeOffersUndo());
        undoing.dismissNotice();
    };
    test::FailingReads::fail();
    commands().deleteEntries(entry);
    expectRefusal("delete");
    commands().moveEntries(entry, shop->id());
    expectRefusal("move");
    commands().duplicateToToday(entry[0]);
    expectRefusal("duplicate");
    commands().continueEntry(entry[0]);
    expectRefusal("continue");
    test::FailingReads::heal();
    EXPECT_EQ(entryCount(), 3U);
    EXPECT_FALSE(undoing.canUndo());
}

TEST_F(EntryCommands, onARowThatCannotBeReadNothingHappens) {
    const int row = rowOf(a);
    a.reset();
    test::FailingReads::fail();
    model->edit(row);
    EXPECT_FALSE(model->editor()->isOpen());
    EXPECT_FALSE(model->openMenu(row));
    EXPECT_EQ(utf8(model->billedHelp(row)), "");
    model->selection()->click(row);
    EXPECT_FALSE(model->editSelected());
    model->menu()->edit();
    EXPECT_FALSE(model->editor()->isOpen());
    EXPECT_EQ(utf8(undoing.notice()), "The library can't be read. Nothing was changed.");
}

}  // namespace
}  // namespace elmworth
