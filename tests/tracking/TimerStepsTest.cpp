// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/HistoryTest.h"

// What the timer does is undone like anything else, whoever started or stopped it.

namespace elmworth {
namespace {

using test::Rows;

struct TimerStepsTest : test::HistoryTest {
    TimerStepsTest() {
        remove({first_, second_});
        history().clear();
        service().setHistory(history());
    }
    void startAt(const std::string& time, const std::string& notes = "x") {
        timer.setTime(time);
        service().start(app_, notes);
    }
    void stopAt(const std::string& time) {
        timer.setTime(time);
        service().stop();
    }
    [[nodiscard]] std::string running() {
        const auto& entry = service().running();
        return entry ? entry->notes.get() + ' ' + service().elapsedText() : "nothing";
    }
};

TEST_F(TimerStepsTest, aStartedTimerGoesAndComesBack) {
    startAt("09:00");
    EXPECT_EQ(history().undoText(), "Undo Start Timer");
    timer.setTime("10:00");
    EXPECT_EQ(history().undo().notice(), "");
    EXPECT_EQ(rows(), Rows{});
    EXPECT_EQ(running(), "nothing");
    history().redo();
    EXPECT_EQ(running(), "x 1:00");
}

TEST_F(TimerStepsTest, aStoppedTimerRunsOn) {
    startAt("09:00");
    stopAt("10:00");
    EXPECT_EQ(history().undoText(), "Undo Stop Timer");
    timer.setTime("10:30");
    EXPECT_EQ(history().undo().notice(), "");
    EXPECT_EQ(rows(), (Rows{"09:00- App x"}));
    EXPECT_EQ(running(), "x 1:30");
    history().redo();
    EXPECT_EQ(rows(), (Rows{"09:00-10:00 App x"}));
    EXPECT_EQ(running(), "nothing");
}

TEST_F(TimerStepsTest, aStoppedTimerStaysStoppedWhenTimeWasTrackedSince) {
    startAt("09:00");
    stopAt("10:00");
    const auto since = add("10:10", "10:20", "since");
    context().save();
    timer.setTime("10:30");
    EXPECT_EQ(history().undo().notice(),
              "The timer was not started again, because time was tracked since.");
    EXPECT_EQ(rows(), (Rows{"09:00-10:00 App x", "10:10-10:20 Website since"}));
}

TEST_F(TimerStepsTest, aSwitchIsOneStep) {
    startAt("09:00");
    startAt("10:00", "next");
    EXPECT_EQ(history().undoText(), "Undo Switch Timer");
    history().undo();
    EXPECT_EQ(rows(), (Rows{"09:00- App x"}));
    EXPECT_EQ(running(), "x 1:00");
}

TEST_F(TimerStepsTest, aStopOfNothingIsNoStep) {
    service().stop();
    service().stop(timer.now);
    EXPECT_FALSE(history().canUndo());
}

TEST_F(TimerStepsTest, aSleepThatWasTakenOutIsPutBack) {
    startAt("09:00");
    timer.sleep("09:30", "10:00");
    service().discardAwayTime();
    EXPECT_EQ(rows(), (Rows{"09:00-09:30 App x", "10:00- App x"}));
    EXPECT_EQ(history().undoText(), "Undo Discard Time Away");
    history().undo();
    EXPECT_EQ(rows(), (Rows{"09:00- App x"}));
    EXPECT_EQ(running(), "x 1:00");
}

TEST_F(TimerStepsTest, aContinuationInTheTimesheetIsOneStep) {
    startAt("09:00");
    stopAt("10:00");
    editing_.continueEntry(context().fetch<TimeEntry>().at(0));
    EXPECT_EQ(history().undoText(), "Undo Continue Tracking");
    history().undo();
    EXPECT_EQ(history().undoText(), "Undo Stop Timer");
}

TEST_F(TimerStepsTest, typedNotesAreOneStepUntilTheFieldIsLeft) {
    startAt("09:00");
    for (const char* notes : {"T", "Ty"}) service().typeNotes(notes);
    service().leaveNotes();
    service().typeNotes("Typ");
    history().undo();
    EXPECT_EQ(running(), "Ty 0:00");
    EXPECT_EQ(history().undoText(), "Undo Edit Notes");
    history().undo();
    EXPECT_EQ(running(), "x 0:00");
    EXPECT_EQ(history().undoText(), "Undo Start Timer");
}

TEST_F(TimerStepsTest, aStopAfterTypedNotesIsUndoneByItself) {
    startAt("09:00");
    service().typeNotes("typed");
    stopAt("10:00");
    history().undo();
    EXPECT_EQ(running(), "typed 1:00");
}

}  // namespace
}  // namespace elmworth
