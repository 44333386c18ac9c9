// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/HistoryTest.h"

// What an undo leaves alone, because somebody else changed it.

namespace elmworth {
namespace {

using test::Rows;

struct EntryHistoryConflictTest : test::HistoryTest {
    static constexpr auto billedNotice = "1 entry is on an invoice and stays as it is.";
    static constexpr auto changedNotice = "1 entry was changed since and stays as it is.";

    void deleteProject(const Ref<Project>& project) {
        context().deleteRecord(project);
        context().save();
        service().refresh();
    }
};

// --- billed ------------------------------------------------------------------------------------

TEST_F(EntryHistoryConflictTest, aBilledEntryStaysMovedAndTheOthersGoBack) {
    move({first_, second_}, app_);
    bill(first_);
    EXPECT_EQ(history().undo().notice(), billedNotice);
    EXPECT_EQ(rows(), (Rows{"06:00-06:30 App a", "07:00-07:30 Website b"}));
    EXPECT_EQ(history().redoText(), "Redo Move Entry");
}

TEST_F(EntryHistoryConflictTest, aBilledEntryStaysWhereItIsInARedo) {
    move({first_, second_}, app_);
    history().undo();
    bill(first_);
    EXPECT_EQ(history().redo().notice(), billedNotice);
    EXPECT_EQ(rows(), (Rows{"06:00-06:30 Website a", "07:00-07:30 App b"}));
}

TEST_F(EntryHistoryConflictTest, aBilledEntryKeepsItsEdit) {
    edit(first_, "06:00", "06:45", "typed");
    bill(first_);
    EXPECT_EQ(history().undo().notice(), billedNotice);
    EXPECT_EQ(rows()[0], "06:00-06:45 Website typed");
}

TEST_F(EntryHistoryConflictTest, aBilledEntryIsNotRemovedThoughItWasAdded) {
    const auto added = edit(nullptr, "08:00", "08:30", "new");
    const auto duplicate = editing_.duplicateEntryToToday(first_);
    duplicate->invoice = timer.library.addInvoice("INV-1", acme_);
    added->invoice = duplicate->invoice;
    context().save();
    EXPECT_EQ(history().undo().notice(), billedNotice);
    EXPECT_EQ(history().undo().notice(), billedNotice);
    EXPECT_EQ(rows().size(), 4U);
}

TEST_F(EntryHistoryConflictTest, anEntryThatIsBilledIsNotDeletedAgain) {
    remove({first_, second_});
    history().undo();
    bill(again(first_));
    EXPECT_EQ(history().redo().notice(), billedNotice);
    EXPECT_EQ(rows(), (Rows{"06:00-06:30 Website a"}));
}

TEST_F(EntryHistoryConflictTest, aStepOfWhichNothingIsLeftIsDropped) {
    move({first_}, app_);
    bill(first_);
    const auto result = history().undo();
    EXPECT_EQ(result.changed, 0U);
    EXPECT_EQ(result.notice(), billedNotice);
    EXPECT_FALSE(history().canUndo());
    EXPECT_FALSE(history().canRedo());
}

// --- changed elsewhere -------------------------------------------------------------------------

TEST_F(EntryHistoryConflictTest, whatSomebodyElseTypedIsNotOverwritten) {
    edit(first_, "06:00", "06:30", "mine");
    first_->notes = "theirs";
    EXPECT_EQ(history().undo().notice(), changedNotice);
    EXPECT_EQ(rows()[0], "06:00-06:30 Website theirs");
    EXPECT_FALSE(history().canRedo());
}

TEST_F(EntryHistoryConflictTest, whatSomebodyElseTypedSinceAnUndoIsNotOverwritten) {
    edit(first_, "06:00", "06:30", "mine");
    history().undo();
    first_->notes = "theirs";
    EXPECT_EQ(history().redo().notice(), changedNotice);
    EXPECT_EQ(rows()[0], "06:00-06:30 Website theirs");
}

TEST_F(EntryHistoryConflictTest, anotherFieldThatSomebodyElseChangedStaysAndTheStepIsTakenBack) {
    move({first_}, app_);
    first_->notes = "theirs";
    EXPECT_EQ(history().undo().notice(), "");
    EXPECT_EQ(rows()[0], "06:00-06:30 Website theirs");
}

TEST_F(EntryHistoryConflictTest, theOthersOfAStepAreTakenBack) {
    move({first_, second_}, app_);
    first_->project = nullptr;
    const auto result = history().undo();
    EXPECT_EQ(result.changed, 1U);
    EXPECT_EQ(result.notice(), changedNotice);
    EXPECT_EQ(rows(), (Rows{"06:00-06:30 none a", "07:00-07:30 Website b"}));
}

TEST_F(EntryHistoryConflictTest, anUndoNeverReversesASpan) {
    edit(first_, "05:00", "06:30", "a");
    first_->end = timer.today("05:30");
    EXPECT_EQ(history().undo().notice(), changedNotice);
    EXPECT_EQ(rows()[0], "05:00-05:30 Website a");
}

TEST_F(EntryHistoryConflictTest, aSpanThatWasReversedBeforeComesBackAsItWas) {
    first_->end = first_->start.get() - std::chrono::hours(1);
    context().save();
    edit(first_, "05:00", "05:30", "a");
    EXPECT_EQ(history().undo().notice(), "");
    EXPECT_EQ(rows()[0], "06:00-05:00 Website a");
    remove({first_});
    history().undo();
    EXPECT_EQ(rows()[0], "06:00-05:00 Website a");
}

TEST_F(EntryHistoryConflictTest, anEntryDeletedElsewhereIsNotMadeAgainByAnEdit) {
    edit(first_, "06:00", "06:30", "mine");
    context().deleteRecord(first_);
    context().save();
    EXPECT_EQ(history().undo().notice(), changedNotice);
    EXPECT_EQ(rows().size(), 1U);
}

TEST_F(EntryHistoryConflictTest, anAddedEntryThatSomebodyElseChangedStays) {
    edit(nullptr, "08:00", "08:30", "new")->notes = "theirs";
    EXPECT_EQ(history().undo().notice(), changedNotice);
    EXPECT_EQ(rows().size(), 3U);
}

TEST_F(EntryHistoryConflictTest, severalAreToldOfInOneSentenceEach) {
    const auto third = add("08:00", "08:10", "c");
    const auto fourth = add("08:10", "08:20", "d");
    const auto fifth = add("08:20", "08:30", "e");
    move({first_, second_, third, fourth, fifth}, app_);
    bill(first_);
    second_->invoice = first_->invoice;
    for (const auto& entry : {third, fourth, fifth}) entry->project = nullptr;
    EXPECT_EQ(history().undo().notice(),
              "2 entries are on an invoice and stay as they are. "
              "3 entries were changed since and stay as they are.");
}

// --- a project that is gone --------------------------------------------------------------------

TEST_F(EntryHistoryConflictTest, anEntryOfADeletedProjectComesBackWithoutOne) {
    remove({first_});
    deleteProject(website_);
    EXPECT_EQ(history().undo().notice(), "");
    EXPECT_EQ(rows(), (Rows{"06:00-06:30 none a"}));
    EXPECT_FALSE(context().hasChanges());
    history().redo();
    EXPECT_EQ(rows(), Rows{});
}

TEST_F(EntryHistoryConflictTest, aMoveFromADeletedProjectIsTakenBackToNone) {
    move({first_}, app_);
    deleteProject(website_);
    EXPECT_EQ(history().undo().notice(), "");
    EXPECT_EQ(rows(), (Rows{"06:00-06:30 none a"}));
}

TEST_F(EntryHistoryConflictTest, olderStepsStillFindAnEntryThatCameBackWithoutItsProject) {
    edit(first_, "06:00", "06:30", "typed");
    move({first_}, app_);
    remove({first_});
    deleteProject(app_);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(history().undo().notice(), "") << i;
    EXPECT_EQ(rows()[0], "06:00-06:30 Website a");
}

TEST_F(EntryHistoryConflictTest, anEntryOfAProjectWhoseDeletionIsNotSavedYetComesBackWithoutOne) {
    remove({first_});
    context().deleteRecord(website_);
    history().undo();
    EXPECT_EQ(storedRows(), (Rows{"06:00-06:30 none a"}));
}

TEST_F(EntryHistoryConflictTest, anArchivedProjectIsStillTheProject) {
    remove({first_});
    website_->isArchived = true;
    history().undo();
    EXPECT_EQ(rows()[0], "06:00-06:30 Website a");
}

}  // namespace
}  // namespace elmworth
