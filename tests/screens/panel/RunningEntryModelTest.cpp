// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/RunningEntryModel.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "support/LibraryTest.h"

namespace elmworth {
namespace {

class RunningEntry : public test::LibraryTest {
 protected:
    Ref<Client> client = timer.library.addClient("Acme Co");
    Ref<Project> project = timer.library.addProject("<b>Website</b> & more", client);
    RunningEntryModel model{services()};
};

TEST_F(RunningEntry, isEmptyWhileNothingRuns) {
    EXPECT_FALSE(model.isRunning());
    EXPECT_EQ(model.projectName(), QString());
    EXPECT_EQ(model.clientName(), QString());
    EXPECT_EQ(model.notes(), QString());
    EXPECT_EQ(model.elapsed(), QStringLiteral("0:00:00"));
}

TEST_F(RunningEntry, namesAreShownAsTheyAre) {
    service().start(project, "Logo");
    EXPECT_TRUE(model.isRunning());
    EXPECT_EQ(model.projectName(), QStringLiteral("<b>Website</b> & more"));
    EXPECT_EQ(model.projectTitle(), model.projectName());
    EXPECT_EQ(model.clientName(), QStringLiteral("Acme Co"));
    EXPECT_EQ(model.notes(), QStringLiteral("Logo"));
    EXPECT_EQ(model.projectColor(), QStringLiteral("#4F7CFF"));
}

TEST_F(RunningEntry, withoutAProjectTheNameIsEmptyAndTheTitleSaysSo) {
    timer.library.addEntry(nullptr, timer.now, {});
    service().restore();
    EXPECT_TRUE(model.isRunning());
    EXPECT_EQ(model.projectName(), QString());
    EXPECT_EQ(model.projectTitle(), QStringLiteral("No project"));
    EXPECT_EQ(model.projectColor(), QStringLiteral("#FF5B87"));
}

TEST_F(RunningEntry, aTickChangesTheElapsedTimeAlone) {
    service().start(project);
    timer.library.runLoop.turn();
    QSignalSpy elapsed(&model, &RunningEntryModel::elapsedChanged);
    QSignalSpy running(&model, &RunningEntryModel::changed);
    timer.setTime("09:00:01");
    timer.library.runLoop.fire();
    EXPECT_EQ(model.elapsed(), QStringLiteral("0:00:01"));
    EXPECT_EQ(elapsed.size(), 1);
    EXPECT_EQ(running.size(), 0);
}

TEST_F(RunningEntry, aRenamedProjectIsTold) {
    service().start(project);
    QSignalSpy running(&model, &RunningEntryModel::changed);
    project->name = "App";
    timer.library.context().save();
    EXPECT_GE(running.size(), 1);
    EXPECT_EQ(model.projectName(), QStringLiteral("App"));
}

TEST_F(RunningEntry, theBadgeHasTheProjectsColorOrOneOfItsOwn) {
    service().start(project);
    EXPECT_EQ(model.badgeColor(), QStringLiteral("#4F7CFF"));
    service().running()->project = nullptr;
    timer.library.runLoop.turn();
    EXPECT_EQ(model.badgeColor(), QStringLiteral("#7C6CFF"));
}

TEST_F(RunningEntry, notesThatAreTypedAreTheEntrysAtOnceAndSavedWhenAsked) {
    service().start(project);
    model.setNotes(QStringLiteral("Logo"));
    EXPECT_EQ(service().running()->notes.get(), "Logo");
    EXPECT_TRUE(timer.library.context().hasChanges());
    model.saveNotes();
    EXPECT_FALSE(timer.library.context().hasChanges());
    timer.restart();
    EXPECT_EQ(service().running()->notes.get(), "Logo");
}

TEST_F(RunningEntry, notesAreToldWhoeverWritesThem) {
    service().start(project);
    timer.library.runLoop.turn();
    QSignalSpy told(&model, &RunningEntryModel::notesChanged);
    service().running()->notes = "Elsewhere";
    timer.library.runLoop.turn();
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(model.notes(), QStringLiteral("Elsewhere"));
}

TEST_F(RunningEntry, stopSavesTheNotesAndEndsTheEntry) {
    service().start(project);
    const auto entry = service().running();
    model.setNotes(QStringLiteral("Logo"));
    timer.setTime("10:00");
    model.stop();
    EXPECT_FALSE(model.isRunning());
    EXPECT_EQ(entry->notes.get(), "Logo");
    EXPECT_EQ(*entry->end.get(), test::TestTimer::today("10:00"));
    EXPECT_FALSE(timer.library.context().hasChanges());
}

TEST_F(RunningEntry, notesOfAnEntryThatIsGoneAreDropped) {
    service().start(project);
    const auto entry = service().running();
    timer.library.context().deleteRecord(entry);
    model.setNotes(QStringLiteral("Logo"));
    model.saveNotes();
    model.stop();
    EXPECT_FALSE(model.isRunning());
    EXPECT_EQ(timer.library.context().fetchCount<TimeEntry>(), 0U);
}

TEST_F(RunningEntry, whileNothingRunsNotesAndStopDoNothing) {
    model.setNotes(QStringLiteral("Logo"));
    model.saveNotes();
    model.stop();
    EXPECT_EQ(model.notes(), QString());
    EXPECT_FALSE(model.isRunning());
}

TEST_F(RunningEntry, changesOfOtherRecordsTellNothingWhileNothingRuns) {
    QSignalSpy running(&model, &RunningEntryModel::changed);
    project->name = "App";
    timer.library.addEntry(project, timer.now - std::chrono::hours(1), timer.now);
    timer.library.context().save();
    EXPECT_EQ(running.size(), 0);
}

}  // namespace
}  // namespace elmworth
