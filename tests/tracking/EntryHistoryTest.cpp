// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "support/FileSizeLimit.h"
#include "tracking/HistoryTest.h"

namespace elmworth {
namespace {

using test::Rows;

struct EntryHistoryTest : test::HistoryTest {
    const Rows start = {"06:00-06:30 Website a", "07:00-07:30 Website b"};

    /// Undo gives the start, redo what the step made, however often, and on disk too.
    void expectUndoAndRedo(const Rows& done) {
        EXPECT_EQ(rows(), done);
        for (int round = 0; round < 3; ++round) {
            EXPECT_EQ(history().undo().notice(), "");
            EXPECT_EQ(rows(), start) << round;
            EXPECT_FALSE(context().hasChanges());
            EXPECT_EQ(history().redo().notice(), "");
            EXPECT_EQ(rows(), done) << round;
        }
        history().undo();
        EXPECT_EQ(storedRows(), start);
    }
};

// --- the five actions --------------------------------------------------------------------------

TEST_F(EntryHistoryTest, deletedEntriesComeBack) {
    remove({first_, second_});
    EXPECT_EQ(history().undoText(), "Undo Delete 2 Entries");
    expectUndoAndRedo({});
}

TEST_F(EntryHistoryTest, deletedEntriesComeBackWithTheirIdentityAndFrozenRate) {
    first_->billedRateCents = 9500;
    remove({first_});
    history().undo();
    ASSERT_TRUE(again(first_));
    EXPECT_EQ(again(first_)->billedRateCents.get(), 9500);
}

TEST_F(EntryHistoryTest, movedEntriesGoBackToTheirProjects) {
    second_->project = nullptr;
    context().save();
    EXPECT_EQ(move({first_, second_}, app_), (EntryTally{2, 0}));
    EXPECT_EQ(history().undoText(), "Undo Move 2 Entries");
    history().undo();
    EXPECT_EQ(rows(), (Rows{"06:00-06:30 Website a", "07:00-07:30 none b"}));
    history().redo();
    EXPECT_EQ(rows(), (Rows{"06:00-06:30 App a", "07:00-07:30 App b"}));
}

TEST_F(EntryHistoryTest, aDuplicateGoesAndComesBack) {
    ASSERT_TRUE(editing_.duplicateEntryToToday(first_));
    EXPECT_EQ(history().undoText(), "Undo Duplicate to Today");
    expectUndoAndRedo({"06:00-06:30 Website a", "06:00-06:30 Website a", "07:00-07:30 Website b"});
}

TEST_F(EntryHistoryTest, anEditIsTakenBackInAllItsFields) {
    first_->project = app_;
    context().save();
    edit(first_, "05:00", "05:30", "typed");
    EXPECT_EQ(history().undoText(), "Undo Edit Entry");
    EXPECT_EQ(rows()[0], "05:00-05:30 Website typed");
    history().undo();
    EXPECT_EQ(rows()[0], "06:00-06:30 App a");
    history().redo();
    EXPECT_EQ(rows()[0], "05:00-05:30 Website typed");
}

TEST_F(EntryHistoryTest, anAddedEntryGoesAndComesBack) {
    edit(nullptr, "08:00", "08:30", "new");
    EXPECT_EQ(history().undoText(), "Undo Add Entry");
    expectUndoAndRedo(
        {"06:00-06:30 Website a", "07:00-07:30 Website b", "08:00-08:30 Website new"});
}

TEST_F(EntryHistoryTest, aContinuedEntryGoesAndComesBack) {
    ASSERT_TRUE(editing_.continueEntry(first_));
    EXPECT_EQ(history().undoText(), "Undo Continue Tracking");
    expectUndoAndRedo({"06:00-06:30 Website a", "07:00-07:30 Website b", "09:00- Website a"});
}

// --- the row of steps --------------------------------------------------------------------------

TEST_F(EntryHistoryTest, thereIsNothingToUndoAtFirst) {
    EXPECT_FALSE(history().canUndo());
    EXPECT_FALSE(history().canRedo());
    EXPECT_EQ(history().undoText(), "Undo");
    EXPECT_EQ(history().redoText(), "Redo");
    EXPECT_EQ(history().undo().changed, 0U);
    EXPECT_EQ(history().redo().changed, 0U);
    EXPECT_EQ(history().undo().notice(), "");
}

TEST_F(EntryHistoryTest, stepsAreTakenBackFromTheNewestOn) {
    edit(first_, "06:00", "06:30", "typed");
    move({first_, second_}, app_);
    remove({first_});
    EXPECT_EQ(history().undoText(), "Undo Delete Entry");
    history().undo();
    EXPECT_EQ(history().redoText(), "Redo Delete Entry");
    EXPECT_EQ(history().undoText(), "Undo Move 2 Entries");
    history().undo();
    EXPECT_EQ(rows(), (Rows{"06:00-06:30 Website typed", "07:00-07:30 Website b"}));
    history().undo();
    EXPECT_EQ(rows(), start);
    EXPECT_FALSE(history().canUndo());
    for (int i = 0; i < 3; ++i) history().redo();
    EXPECT_EQ(rows(), (Rows{"07:00-07:30 App b"}));
    EXPECT_FALSE(history().canRedo());
}

TEST_F(EntryHistoryTest, whatChangedNothingIsNoStep) {
    remove({first_});
    history().undo();
    move({again(first_)}, website_);
    remove({});
    edit(second_, "07:00", "07:30", "b");
    EXPECT_FALSE(history().canUndo());
    EXPECT_TRUE(history().canRedo());
}

TEST_F(EntryHistoryTest, aDuplicateOrAContinuationThatMadeNothingIsNoStep) {
    first_->end = first_->start.get();
    first_->project = nullptr;
    EXPECT_FALSE(editing_.duplicateEntryToToday(first_));
    EXPECT_FALSE(editing_.continueEntry(first_));
    remove({first_});
    history().undo();
    EXPECT_FALSE(editing_.continueEntry(first_)) << "the object that was deleted";
    EXPECT_FALSE(history().canUndo());
}

TEST_F(EntryHistoryTest, aStepIsNamedAfterTheEntriesThatItChanged) {
    bill(first_);
    EXPECT_EQ(remove({first_, second_}), (EntryTally{1, 1}));
    EXPECT_EQ(history().undoText(), "Undo Delete Entry");
}

TEST_F(EntryHistoryTest, nothingIsLeftAfterClearing) {
    remove({first_});
    remove({second_});
    history().undo();
    history().clear();
    EXPECT_FALSE(history().canUndo());
    EXPECT_FALSE(history().canRedo());
}

TEST_F(EntryHistoryTest, observersAreToldOfEachStepUndoAndRedo) {
    int told = 0;
    const auto observation = history().observe([&] { ++told; });
    remove({first_});
    EXPECT_EQ(told, 1);
    history().undo();
    EXPECT_EQ(told, 2);
    history().redo();
    EXPECT_EQ(told, 3);
    remove({});
    EXPECT_EQ(told, 3);
}

// --- limits ------------------------------------------------------------------------------------

TEST_F(EntryHistoryTest, theOldestStepsAreForgottenBeyondTheLimit) {
    UndoHistory history(context(), [this] { return timer.now; }, {.steps = 3});
    for (const char* notes : {"1", "2", "3", "4", "5"}) {
        history.perform("Edit Entry", [&] { first_->notes = notes; });
    }
    while (history.canUndo()) history.undo();
    EXPECT_EQ(first_->notes.get(), "2");
}

TEST_F(EntryHistoryTest, longNotesLeaveRoomForFewerStepsButAlwaysForOne) {
    UndoHistory history(context(), [this] { return timer.now; }, {.bytes = 1000});
    const auto type = [&](std::size_t length) {
        history.perform("Edit Entry", [&] { first_->notes = std::string(length, 'x'); });
    };
    type(10);
    type(20);
    type(100'000);
    history.undo();
    EXPECT_EQ(first_->notes.get().size(), 20U);
    EXPECT_FALSE(history.canUndo());
}

// --- saving ------------------------------------------------------------------------------------

TEST_F(EntryHistoryTest, anUndoThatCannotBeSavedStaysPending) {
    remove({first_});
    {
        const test::FileSizeLimit fullDisk(0);
        history().undo();
        EXPECT_EQ(rows(), start);
        EXPECT_TRUE(context().hasChanges());
    }
    context().save();
    EXPECT_EQ(storedRows(), start);
}

TEST_F(EntryHistoryTest, aDeletionThatCouldNotBeSavedIsUndoneAllTheSame) {
    {
        const test::FileSizeLimit fullDisk(0);
        remove({first_});
        history().undo();
        EXPECT_EQ(rows(), start);
        history().redo();
        EXPECT_EQ(rows(), (Rows{"07:00-07:30 Website b"}));
        history().undo();
    }
    context().save();
    EXPECT_EQ(storedRows(), start);
}

TEST_F(EntryHistoryTest, manyEntriesAreUndoneAndRedoneInOneSaveEach) {
    std::vector<Ref<TimeEntry>> entries;
    for (int i = 0; i < 10'000; ++i) entries.push_back(add("08:00", "08:30", "c"));
    context().save();
    const auto picked = ids(entries);
    entries.clear();
    editing_.deleteEntries(picked);
    EXPECT_EQ(rows().size(), 2U);
    (void)commits();
    EXPECT_EQ(history().undo().changed, 10'000U);
    EXPECT_EQ(commits(), 1U);
    EXPECT_EQ(rows().size(), 10'002U);
    EXPECT_EQ(history().redo().changed, 10'000U);
    EXPECT_EQ(commits(), 1U);
    EXPECT_EQ(storedRows(), start);
}

}  // namespace
}  // namespace elmworth
