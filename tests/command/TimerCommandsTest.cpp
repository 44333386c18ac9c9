// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// status, start, stop, continue and log.

#include "command/CommandTest.h"
#include "support/FileSizeLimit.h"

namespace elmworth {
namespace {

using test::at;
using test::keys;
using testing::ElementsAre;
using namespace std::chrono_literals;

class TimerCommands : public test::CommandTest {};

TEST_F(TimerCommands, statusOfNothing) {
    EXPECT_EQ(output({"status"}), "Nothing is running.\nToday 0:00 · This week 0:00\n");
    const auto status = json({"status"});
    EXPECT_THAT(keys(status), ElementsAre("todaySeconds", "thisWeekSeconds"));
    EXPECT_EQ(status["todaySeconds"].GetInt(), 0);
}

TEST_F(TimerCommands, statusOfARunningTimer) {
    addEntry(design_, "2026-03-30T09:00+02:00", 60);
    timer_.start(design_, "Logo");
    now_ += 65min + 9s;
    const auto status = json({"status"});
    EXPECT_THAT(keys(status), ElementsAre("running", "todaySeconds", "thisWeekSeconds"));
    const auto& running = status["running"];
    EXPECT_THAT(keys(running),
                ElementsAre("project", "client", "notes", "start", "seconds", "elapsed"));
    EXPECT_STREQ(running["project"].GetString(), "Design");
    EXPECT_STREQ(running["client"].GetString(), "Acme Co");
    EXPECT_STREQ(running["notes"].GetString(), "Logo");
    EXPECT_STREQ(running["start"].GetString(), "2026-03-31T10:00:00Z");
    EXPECT_EQ(running["seconds"].GetInt(), 3909);
    EXPECT_STREQ(running["elapsed"].GetString(), "1:05:09");
    EXPECT_EQ(status["todaySeconds"].GetInt(), 3909);
    EXPECT_EQ(status["thisWeekSeconds"].GetInt(), 3909 + 3600);
    EXPECT_EQ(
        output({"status"}),
        "1:05:09  Design — Acme Co\nSince 12:00\u202FPM · Logo\nToday 1:05 · This week 2:05\n");
}

TEST_F(TimerCommands, aTimerUnderAClockThatWasSetBackHasRunForNoTime) {
    timer_.start(design_);
    now_ -= 1h;
    const auto status = json({"status"});
    EXPECT_EQ(status["running"]["seconds"].GetInt(), 0);
    EXPECT_STREQ(status["running"]["elapsed"].GetString(), "0:00:00");
}

TEST_F(TimerCommands, statusCountsTheDayOfWhoeverAsks) {
    addEntry(design_, "2026-03-31T09:00+02:00", 60);  // yesterday evening in Honolulu
    EXPECT_EQ(json({"status"})["todaySeconds"].GetInt(), 3600);
    EXPECT_THAT(output({"status"}), testing::HasSubstr("Today 1:00 · This week 1:00"));
}

// --- start -------------------------------------------------------------------------------------

TEST_F(TimerCommands, startFindsTheProjectWithoutRegardToCase) {
    EXPECT_EQ(output({"start", "DESIGN", "--notes", "Logo"}), "Tracking Design — Acme Co.\n");
    ASSERT_TRUE(timer_.running());
    EXPECT_EQ(timer_.running()->project.get(), design_);
    EXPECT_EQ(timer_.running()->notes.get(), "Logo");
}

TEST_F(TimerCommands, aNameOfSeveralProjectsIsRefusedWithTheCandidates) {
    expectRefusal({"start", "website"}, 1,
                  "There are 2 projects “website”: Website — Acme Co, Website — Globex. Name the "
                  "client with --client.");
    EXPECT_FALSE(timer_.running());
}

TEST_F(TimerCommands, namesAndNumbersAreFoundHoweverTheirCharactersAreComposed) {
    const auto cafe = library_.addClient("Caf\u00e9");
    library_.addProject("R\u00e9sum\u00e9", cafe);
    library_.addInvoice("\u00c9-1", cafe);
    library_.context().save();
    output({"start", "re\u0301sume\u0301", "--client", "CAFE\u0301"});
    EXPECT_EQ(timer_.running()->project->name.get(), "R\u00e9sum\u00e9");
    EXPECT_THAT(output({"invoice", "show", "E\u0301-1"}), testing::HasSubstr("\u00c9-1"));
}

TEST_F(TimerCommands, anUnknownNameIsRefusedWithTheCandidates) {
    expectRefusal({"start", "Web"}, 1,
                  "There is no project “Web”. Candidates: Website — Acme Co, Website — Globex.");
    expectRefusal({"start", "Nothing like it"}, 1,
                  "There is no project “Nothing like it”. Candidates: Design — Acme Co, Website — "
                  "Acme Co, Website — Globex.");
    expectRefusal({"start", "Website", "--client", "acme"}, 1,
                  "There is no client “acme”. Candidates: Acme Co.");
}

TEST_F(TimerCommands, atMostEightCandidatesAreNamed) {
    for (int i = 1; i <= 8; ++i) library_.addProject("P" + std::to_string(i), globex_);
    library_.context().save();
    EXPECT_THAT(run({"start", "zzz"}).errors, testing::EndsWith("P6 — Globex, P7 — Globex and 3 "
                                                                "more.\n"));
}

TEST_F(TimerCommands, aTimerThatIsNotOnDiskIsNoSuccess) {
    const test::FileSizeLimit fullDisk(0);
    const auto result = run({"start", "Design"});
    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_NE(result.errors, "");
}

// --- stop and continue -------------------------------------------------------------------------

TEST_F(TimerCommands, stopWithNothingRunningIsFine) {
    EXPECT_EQ(output({"stop"}), "Nothing is running.\n");
    EXPECT_EQ(output({"stop", "--at", "09:00"}), "Nothing is running.\n");
}

TEST_F(TimerCommands, stopEndsTheEntry) {
    timer_.start(design_);
    const auto entry = timer_.running();
    now_ += 3909s;
    EXPECT_EQ(output({"stop"}), "Stopped Design — Acme Co after 1:05:09.\n");
    EXPECT_EQ(entry->end.get(), now_);
    EXPECT_FALSE(timer_.running());
}

TEST_F(TimerCommands, stopSaysThatTheClockWentBackAndTheTimeIsToBeAdded) {
    timer_.start(design_);
    now_ -= 3600s;
    EXPECT_EQ(
        output({"stop"}),
        "Stopped Design — Acme Co. The clock stands before its start, so nothing was kept: add "
        "the time with elmworth log.\n");
}

TEST_F(TimerCommands, stopWithinASecondKeepsNothing) {
    timer_.start(design_);
    EXPECT_EQ(output({"stop"}),
              "Stopped Design — Acme Co. It ran for less than a second, so nothing was kept.\n");
    EXPECT_EQ(library_.context().fetchCount<TimeEntry>(), 0U);
}

TEST_F(TimerCommands, stopAtAnEarlierTime) {
    timer_.start(design_);
    const auto entry = timer_.running();
    now_ += 3h;
    output({"stop", "--at", "13:30"});
    EXPECT_EQ(entry->end.get(), at("2026-03-31T13:30+02:00"));
}

TEST_F(TimerCommands, stopInTheFutureIsRefused) {
    timer_.start(design_);
    expectRefusal({"stop", "--at", "12:01"}, 1,
                  "The timer can't be stopped at a time in the future.");
    EXPECT_TRUE(timer_.running());
}

TEST_F(TimerCommands, continueTakesUpWhatEndedLast) {
    addEntry(design_, "2026-03-30T09:00+02:00", 60, "Logo");
    EXPECT_EQ(output({"continue"}), "Tracking Design — Acme Co.\n");
    EXPECT_EQ(timer_.running()->notes.get(), "Logo");
    EXPECT_EQ(timer_.running()->start.get(), now_);
}

TEST_F(TimerCommands, continueSaysWhatRunsAndLeavesItRunning) {
    addEntry(design_, "2026-03-30T09:00+02:00", 60, "Logo");
    timer_.start(design_, "Sketches");
    const auto running = timer_.running();
    now_ += 1h;
    EXPECT_EQ(output({"continue"}), "Already tracking Design — Acme Co.\n");
    EXPECT_EQ(timer_.running(), running);
    EXPECT_EQ(json({"continue"})["running"]["notes"], "Sketches");
    timer_.start(nullptr);
    EXPECT_EQ(output({"continue"}), "Already tracking No project.\n");
}

TEST_F(TimerCommands, continueWithNothingToContinueIsRefused) {
    expectRefusal({"continue"}, 1, "There is no entry to continue.");
    design_->isArchived = true;
    addEntry(design_, "2026-03-30T09:00+02:00", 60);
    expectRefusal({"continue"}, 1, "There is no entry to continue.");
}

// --- log ---------------------------------------------------------------------------------------

TEST_F(TimerCommands, logAddsAFinishedEntry) {
    const auto entry =
        json({"log", "design", "--from", "09:00", "--to", "10:30", "--notes", "Logo"});
    EXPECT_THAT(keys(entry),
                ElementsAre("id", "start", "end", "seconds", "project", "client", "notes"));
    EXPECT_STREQ(entry["start"].GetString(), "2026-03-31T07:00:00Z");
    EXPECT_EQ(entry["seconds"].GetInt(), 5400);
    library_.reopen();
    EXPECT_EQ(library_.context().fetchCount<TimeEntry>(), 1U);
}

TEST_F(TimerCommands, logSaysHowLong) {
    EXPECT_EQ(output({"log", "Design", "--from", "09:00", "--to", "10:30"}),
              "Logged 1:30 on Design — Acme Co.\n");
}

TEST_F(TimerCommands, logFollowsTheRulesOfTheEntryForm) {
    expectRefusal({"log", "Design", "--from", "2026-03-31T10:00", "--to", "10:00"}, 1,
                  "End must be after start.");
    expectRefusal({"log", "Design", "--from", "12:01", "--to", "13:00"}, 1,
                  "The start can't be in the future.");
    output({"log", "Design", "--from", "12:00", "--to", "13:00"});  // it may end in the future
}

TEST_F(TimerCommands, logAsksForTheDayOfANight) {
    const char* const hint =
        "End must be after start. A time alone is today's: name the day of one that is not, like "
        "2026-03-01T14:30.";
    expectRefusal({"log", "Design", "--from", "23:00", "--to", "1:00"}, 1, hint);
    expectRefusal({"log", "Design", "--from", "9:30", "--to", "09:30"}, 1, hint);
    EXPECT_EQ(library_.context().fetchCount<TimeEntry>(), 0U);
    output({"log", "Design", "--from", "2026-03-30T23:00", "--to", "1:00"});
    EXPECT_EQ(library_.context().fetchCount<TimeEntry>(), 1U);
}

TEST_F(TimerCommands, logIsNotForArchivedProjects) {
    output({"project", "archive", "Design"});
    expectRefusal({"log", "Design", "--from", "09:00", "--to", "10:00"}, 1,
                  "“Design — Acme Co” is archived. Unarchive it to log time on it.");
    EXPECT_EQ(library_.context().fetchCount<TimeEntry>(), 0U);
}

}  // namespace
}  // namespace elmworth
