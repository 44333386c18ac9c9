// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/HistoryTest.h"

// What an undo does while a timer runs, or ran. It is 09:00 when each test begins.

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::Rows;

struct EntryHistoryTimerTest : test::HistoryTest {
    EntryHistoryTimerTest() {
        second_->notes = "old";
        remove({first_});
        history().clear();
    }
    /// Starts a timer on "App" from the panel.
    Ref<TimeEntry> start(const std::string& time, const std::string& notes = "x") {
        timer.setTime(time);
        service().start(app_, notes);
        return service().running();
    }
    void stop(const std::string& time) {
        timer.setTime(time);
        service().stop();
    }
    void removeAt(const std::string& time, const Ref<TimeEntry>& entry) {
        timer.setTime(time);
        remove({entry});
    }
    /// "Continue" on the entry of "Website" with the notes "old".
    Ref<TimeEntry> continueAt(const std::string& time) {
        timer.setTime(time);
        return editing_.continueEntry(second_);
    }
    UndoResult undoAt(const std::string& time) {
        timer.setTime(time);
        return history().undo();
    }
    UndoResult redoAt(const std::string& time) {
        timer.setTime(time);
        return history().redo();
    }
    /// What runs by the timer's word: its notes and its time, or "nothing".
    [[nodiscard]] std::string running() {
        const auto& entry = service().running();
        return entry ? entry->notes.get() + ' ' + service().elapsedText() : "nothing";
    }
    /// All entries but the one to continue.
    [[nodiscard]] Rows newRows() {
        auto all = rows();
        std::erase(all, "07:00-07:30 Website old");
        return all;
    }
};

constexpr auto staysStopped = "The timer was not started again, because time was tracked since.";

// --- a running entry that is deleted -----------------------------------------------------------

TEST_F(EntryHistoryTimerTest, aDeletedRunningEntryRunsOnWhenNothingWasTrackedSince) {
    removeAt("10:00", start("09:00"));
    EXPECT_EQ(running(), "nothing");
    EXPECT_EQ(undoAt("10:30").notice(), "");
    EXPECT_EQ(newRows(), (Rows{"09:00- App x"}));
    EXPECT_EQ(running(), "x 1:30");
    EXPECT_EQ(timer.library.runLoop.repeatingCount(), 1U);
}

TEST_F(EntryHistoryTimerTest, aRevivedEntryIsStoppedLikeAnyOther) {
    removeAt("10:00", start("09:00"));
    undoAt("10:30");
    stop("11:00");
    EXPECT_EQ(newRows(), (Rows{"09:00-11:00 App x"}));
}

TEST_F(EntryHistoryTimerTest, redoDeletesTheRevivedEntryAndUndoRevivesItAgain) {
    removeAt("10:00", start("09:00"));
    undoAt("10:30");
    redoAt("10:40");
    EXPECT_EQ(newRows(), Rows{});
    EXPECT_EQ(running(), "nothing");
    undoAt("10:50");
    EXPECT_EQ(running(), "x 1:50");
}

TEST_F(EntryHistoryTimerTest, aDeletedRunningEntryEndsWhenItWasDeletedIfATimerRuns) {
    removeAt("10:00", start("09:00"));
    start("10:05", "newer");
    EXPECT_EQ(undoAt("10:30").notice(), staysStopped);
    EXPECT_EQ(newRows(), (Rows{"09:00-10:00 App x", "10:05- App newer"}));
    EXPECT_EQ(running(), "newer 0:25");
}

TEST_F(EntryHistoryTimerTest, aTimerThatRunsIsNewerThoughItsStartWasMovedBack) {
    removeAt("10:00", start("09:00"));
    start("10:05", "newer")->start = test::TestTimer::today("08:00");
    EXPECT_EQ(undoAt("10:30").notice(), staysStopped);
    EXPECT_EQ(newRows(), (Rows{"08:00- App newer", "09:00-10:00 App x"}));
}

TEST_F(EntryHistoryTimerTest, aDeletedRunningEntryEndsWhenItWasDeletedIfTimeWasTrackedSince) {
    removeAt("10:00", start("09:00"));
    start("10:05", "newer");
    stop("10:10");
    EXPECT_EQ(undoAt("10:30").notice(), staysStopped);
    EXPECT_EQ(newRows(), (Rows{"09:00-10:00 App x", "10:05-10:10 App newer"}));
    EXPECT_EQ(running(), "nothing");
}

TEST_F(EntryHistoryTimerTest, timeAddedByHandBeforeTheDeletionIsNotTrackedSince) {
    removeAt("10:00", start("09:00"));
    add("08:00", "10:20", "by hand");
    EXPECT_EQ(undoAt("10:30").notice(), "");
    EXPECT_EQ(running(), "x 1:30");
}

TEST_F(EntryHistoryTimerTest, anEntryOfLessThanASecondComesBackWithASecond) {
    const auto entry = start("09:00");
    remove({entry});
    start("10:00", "newer");
    undoAt("10:30");
    EXPECT_EQ(timer.spans()[1], "09:00:00-09:00:01");
}

TEST_F(EntryHistoryTimerTest, whatWasEndedByAnUndoIsDeletedByTheRedoAndComesBackEnded) {
    removeAt("10:00", start("09:00"));
    start("10:05", "newer");
    undoAt("10:30");
    EXPECT_EQ(redoAt("10:40").notice(), "");
    EXPECT_EQ(newRows(), (Rows{"10:05- App newer"}));
    EXPECT_EQ(undoAt("10:50").notice(), "");
    EXPECT_EQ(newRows(), (Rows{"09:00-10:00 App x", "10:05- App newer"}));
}

TEST_F(EntryHistoryTimerTest, aRevivedEntryThatWasStoppedSinceIsDeletedByTheRedoAndKeepsItsEnd) {
    removeAt("10:00", start("09:00"));
    undoAt("10:30");
    stop("11:00");
    EXPECT_EQ(redoAt("11:10").notice(), "");
    EXPECT_EQ(newRows(), Rows{});
    undoAt("11:20");
    EXPECT_EQ(newRows(), (Rows{"09:00-11:00 App x"}));
}

TEST_F(EntryHistoryTimerTest, anEditOfARunningEntryIsTakenBackWhileItRunsOn) {
    const auto entry = start("09:00");
    timer.setTime("10:00");
    edit(entry, "08:00", "08:00", "typed");
    EXPECT_EQ(running(), "typed 2:00");
    undoAt("10:00");
    EXPECT_EQ(running(), "x 1:00");
}

TEST_F(EntryHistoryTimerTest, anEditOfARunningEntryIsTakenBackAfterItWasStopped) {
    const auto entry = start("09:00");
    edit(entry, "08:00", "08:00", "typed");
    stop("10:00");
    EXPECT_EQ(history().undo().notice(), "");
    EXPECT_EQ(newRows(), (Rows{"09:00-10:00 App x"}));
}

TEST_F(EntryHistoryTimerTest, olderStepsStillFindAnEntryThatCameBackEnded) {
    const auto entry = start("09:00");
    edit(entry, "09:00", "09:00", "typed");
    removeAt("10:00", entry);
    start("10:05", "newer");
    undoAt("10:30");
    EXPECT_EQ(newRows()[0], "09:00-10:00 Website typed");
    EXPECT_EQ(undoAt("10:31").notice(), "");
    EXPECT_EQ(newRows()[0], "09:00-10:00 App x");
}

// --- Continue ----------------------------------------------------------------------------------

TEST_F(EntryHistoryTimerTest, undoingAContinuationLetsTheStoppedEntryRunOn) {
    start("09:00");
    continueAt("10:00");
    EXPECT_EQ(running(), "old 0:00");
    EXPECT_EQ(undoAt("10:30").notice(), "");
    EXPECT_EQ(newRows(), (Rows{"09:00- App x"}));
    EXPECT_EQ(running(), "x 1:30");
}

TEST_F(EntryHistoryTimerTest, redoingAContinuationStopsTheOtherEntryWhereItWasStopped) {
    start("09:00");
    continueAt("10:00");
    undoAt("10:30");
    EXPECT_EQ(redoAt("10:40").notice(), "");
    EXPECT_EQ(newRows(), (Rows{"09:00-10:00 App x", "10:00- Website old"}));
    EXPECT_EQ(running(), "old 0:40");
    undoAt("10:50");
    EXPECT_EQ(running(), "x 1:50");
}

TEST_F(EntryHistoryTimerTest, aStopAfterAContinuationIsAStopOfTheEntryThatTakesOver) {
    start("09:00");
    continueAt("10:00");
    stop("10:30");
    EXPECT_EQ(undoAt("12:00").notice(), "");
    EXPECT_EQ(newRows(), (Rows{"09:00-10:30 App x"}));
    EXPECT_EQ(running(), "nothing");
    EXPECT_EQ(redoAt("12:10").notice(), "");
    EXPECT_EQ(newRows(), (Rows{"09:00-10:00 App x", "10:00-10:30 Website old"}));
}

TEST_F(EntryHistoryTimerTest, aStopAfterAnUndoneContinuationIsAStopOfTheContinuedEntry) {
    start("09:00");
    continueAt("10:00");
    undoAt("10:10");
    stop("10:30");
    EXPECT_EQ(redoAt("12:00").notice(), "");
    EXPECT_EQ(newRows(), (Rows{"09:00-10:00 App x", "10:00-10:30 Website old"}));
    EXPECT_EQ(running(), "nothing");
}

TEST_F(EntryHistoryTimerTest, aStopFromBeforeTheContinuationLeavesNothingToRedo) {
    start("09:00");
    continueAt("10:00");
    undoAt("10:10");
    timer.setTime("10:30");
    service().stop(timer.today("09:45"));
    EXPECT_EQ(redoAt("12:00").notice(), "1 entry was changed since and stays as it is.");
    EXPECT_EQ(newRows(), (Rows{"09:00-09:45 App x"}));
    EXPECT_EQ(running(), "nothing");
}

TEST_F(EntryHistoryTimerTest, aNewerTimerRunsOnAndTheStoppedEntryTakesTheTimeOver) {
    start("09:00");
    continueAt("10:00");
    start("10:30", "newer");
    EXPECT_EQ(undoAt("11:00").notice(), "");
    EXPECT_EQ(newRows(), (Rows{"09:00-10:30 App x", "10:30- App newer"}));
    EXPECT_EQ(running(), "newer 0:30");
}

TEST_F(EntryHistoryTimerTest, aContinuationThatStoppedNothingIsJustRemoved) {
    continueAt("10:00");
    EXPECT_EQ(undoAt("10:30").notice(), "");
    EXPECT_EQ(newRows(), Rows{});
    EXPECT_EQ(running(), "nothing");
    EXPECT_EQ(redoAt("10:40").notice(), "");
    EXPECT_EQ(running(), "old 0:40");
}

TEST_F(EntryHistoryTimerTest, aContinuationIsNotRedoneAgainstANewerTimer) {
    continueAt("10:00");
    undoAt("10:30");
    start("10:35", "newer");
    EXPECT_EQ(redoAt("10:40").notice(), staysStopped);
    EXPECT_EQ(newRows(), (Rows{"10:00-10:30 Website old", "10:35- App newer"}));
    EXPECT_EQ(running(), "newer 0:05");
}

TEST_F(EntryHistoryTimerTest, anEntryThatAContinuationSweptAwayRunsOnToo) {
    start("09:00");
    continueAt("09:00");
    EXPECT_EQ(newRows(), (Rows{"09:00- Website old"}));
    undoAt("09:30");
    EXPECT_EQ(newRows(), (Rows{"09:00- App x"}));
    EXPECT_EQ(running(), "x 0:30");
}

TEST_F(EntryHistoryTimerTest, notesTypedIntoTheContinuedEntryKeepIt) {
    start("09:00");
    continueAt("10:00")->notes = "typed";
    EXPECT_EQ(undoAt("10:30").notice(), "1 entry was changed since and stays as it is.");
    EXPECT_EQ(newRows(), (Rows{"09:00-10:00 App x", "10:00- Website typed"}));
    EXPECT_EQ(running(), "typed 0:30");
    EXPECT_FALSE(history().canRedo());
}

TEST_F(EntryHistoryTimerTest, aBilledEntryIsNotOpenedAgain) {
    const auto stopped = start("09:00");
    continueAt("10:00");
    bill(stopped);
    EXPECT_EQ(undoAt("10:30").notice(), "1 entry is on an invoice and stays as it is.");
    EXPECT_EQ(newRows(), (Rows{"09:00-10:00 App x"}));
    EXPECT_EQ(running(), "nothing");
}

TEST_F(EntryHistoryTimerTest, undoneSleepsAreAskedAboutAfterTheStoppedEntryTookOver) {
    start("09:00");
    continueAt("10:00");
    timer.sleep("10:10", "10:40");
    undoAt("10:45");
    ASSERT_EQ(service().awayIntervals().size(), 1U);
    service().discardAwayTime();
    EXPECT_EQ(newRows(), (Rows{"09:00-10:10 App x", "10:40- App x"}));
}

TEST_F(EntryHistoryTimerTest, theRevivedEntryRunsOnAfterARestart) {
    removeAt("10:00", start("09:00"));
    undoAt("10:30");
    timer.restart();
    EXPECT_EQ(running(), "x 1:30");
}

}  // namespace
}  // namespace elmworth
