// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/EntryService.h"

#include <gtest/gtest.h>

#include "support/FileSizeLimit.h"
#include "tracking/HistoryTest.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;

class PickedEntriesTest : public test::HistoryTest {
 protected:
    Ref<TimeEntry> add(const std::string& from, const std::string& to) {
        return HistoryTest::add(from, to, "");
    }

    Ref<TimeEntry> third_ = add("08:00", "08:30");
};

// --- delete ------------------------------------------------------------------------------------

TEST_F(PickedEntriesTest, deletedEntriesAreGoneFromTheDisk) {
    context().save();
    EXPECT_EQ(remove({first_, third_}), (EntryTally{2, 0}));
    timer.restart();
    EXPECT_EQ(timer.spans(), std::vector<std::string>{"07:00:00-07:30:00"});
}

TEST_F(PickedEntriesTest, aBilledEntryIsSkippedAndCountedAndTheOthersGo) {
    bill(second_);
    EXPECT_EQ(remove({first_, second_, third_}), (EntryTally{2, 1}));
    EXPECT_EQ(timer.spans(), std::vector<std::string>{"07:00:00-07:30:00"});
    EXPECT_EQ(second_->invoice->number.get(), "INV-1");
}

TEST_F(PickedEntriesTest, deletingEntriesThatAreAllGoneDoesNothingAndSavesNothing) {
    context().save();
    remove({first_});
    third_->notes = "typed elsewhere";
    EXPECT_EQ(remove({first_}), EntryTally{});
    EXPECT_EQ(editing_.deleteEntries({}), EntryTally{});
    EXPECT_TRUE(context().hasChanges());
}

TEST_F(PickedEntriesTest, deletingTheRunningEntryStopsTheTicker) {
    timer.service->start(website_);
    timer.setTime("10:00");
    timer.library.runLoop.fire();
    remove({timer.service->running()});
    EXPECT_FALSE(timer.service->running());
    EXPECT_EQ(timer.service->elapsedText(), "");
    EXPECT_EQ(timer.library.runLoop.repeatingCount(), 0U);
}

TEST_F(PickedEntriesTest, deletingAnotherEntryLeavesTheTimerRunning) {
    timer.service->start(website_);
    const auto running = timer.service->running();
    remove({first_});
    EXPECT_EQ(timer.service->running(), running);
}

TEST_F(PickedEntriesTest, aDeletionThatCannotBeSavedStaysPending) {
    context().save();
    {
        const test::FileSizeLimit fullDisk(0);
        EXPECT_EQ(remove({first_}), (EntryTally{1, 0}));
        EXPECT_TRUE(context().hasChanges());
    }
    context().save();
    timer.restart();
    EXPECT_EQ(timer.spans().size(), 2U);
}

// --- move --------------------------------------------------------------------------------------

TEST_F(PickedEntriesTest, movedEntriesBelongToTheOtherProjectOnDisk) {
    EXPECT_EQ(move({first_, second_}, app_), (EntryTally{2, 0}));
    const auto app = app_->id();
    timer.restart();
    EXPECT_EQ(context().fetchCount(
                  Query<TimeEntry>{.predicate = key<&TimeEntry::project>() == std::optional(app)}),
              2U);
}

TEST_F(PickedEntriesTest, aBilledEntryKeepsItsProjectAndIsCountedAndTheOthersMove) {
    bill(second_);
    EXPECT_EQ(move({first_, second_, third_}, app_), (EntryTally{2, 1}));
    EXPECT_EQ(first_->project.get(), app_);
    EXPECT_EQ(second_->project.get(), website_);
    EXPECT_EQ(third_->project.get(), app_);
}

TEST_F(PickedEntriesTest, movingToTheProjectThatItHasChangesNothing) {
    context().save();
    EXPECT_EQ(move({first_}, website_), EntryTally{});
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(PickedEntriesTest, theRunningEntryMovesAndRunsOn) {
    timer.service->start(website_);
    const auto running = timer.service->running();
    EXPECT_EQ(move({running}, app_), (EntryTally{1, 0}));
    EXPECT_EQ(timer.service->running(), running);
    EXPECT_TRUE(running->isRunning());
}

TEST_F(PickedEntriesTest, aProjectDeletedWhileTheMenuWasOpenGetsNothing) {
    context().save();
    context().deleteRecord(app_);
    EXPECT_EQ(move({first_}, app_), EntryTally{});
    context().save();
    EXPECT_EQ(move({first_}, app_), EntryTally{});
    EXPECT_EQ(first_->project.get(), website_);
}

TEST_F(PickedEntriesTest, anEntryDeletedWhileTheMenuWasOpenIsPassedOver) {
    context().save();
    remove({first_});
    EXPECT_EQ(move({first_, second_}, app_), (EntryTally{1, 0}));
}

// --- both --------------------------------------------------------------------------------------

TEST_F(PickedEntriesTest, manyEntriesAreChangedInOneSave) {
    std::vector<Ref<TimeEntry>> entries;
    for (int i = 0; i < 10'000; ++i) entries.push_back(add("06:00", "06:30"));
    context().save();
    const auto picked = ids(entries);
    entries.clear();
    (void)commits();
    EXPECT_EQ(editing_.moveEntries(picked, app_), (EntryTally{10'000, 0}));
    EXPECT_EQ(commits(), 1U);
    EXPECT_EQ(editing_.deleteEntries(picked), (EntryTally{10'000, 0}));
    EXPECT_EQ(commits(), 1U);
    EXPECT_EQ(timer.spans().size(), 3U);
}

}  // namespace
}  // namespace elmworth
