// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/EntryService.h"

#include <gtest/gtest.h>

#include "support/FileSizeLimit.h"
#include "support/StatementTrace.h"
#include "support/TestTimer.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::TestTimer;

class PickedEntriesTest : public testing::Test {
 protected:
    [[nodiscard]] UnitOfWork& context() { return timer_.library.context(); }
    Ref<TimeEntry> add(const std::string& from, const std::string& to) {
        return timer_.library.addEntry(website_, TestTimer::today(from), TestTimer::today(to));
    }
    void bill(const Ref<TimeEntry>& entry) {
        entry->invoice = timer_.library.addInvoice("INV-1", acme_);
        context().save();
    }
    EntryTally remove(const std::vector<Ref<TimeEntry>>& entries) {
        return entries_.deleteEntries(ids(entries));
    }
    EntryTally move(const std::vector<Ref<TimeEntry>>& entries, const Ref<Project>& project) {
        return entries_.moveEntries(ids(entries), project);
    }
    [[nodiscard]] static std::vector<PersistentID> ids(const std::vector<Ref<TimeEntry>>& entries) {
        std::vector<PersistentID> ids;
        for (const auto& entry : entries) ids.push_back(entry->id());
        return ids;
    }
    [[nodiscard]] static std::size_t commits() {
        const auto statements = test::StatementTrace::take();
        return static_cast<std::size_t>(std::count(statements.begin(), statements.end(), "COMMIT"));
    }

    test::StatementTrace trace_;
    TestTimer timer_;
    Ref<Client> acme_ = timer_.library.addClient("Acme");
    Ref<Project> website_ = timer_.library.addProject("Website", acme_);
    Ref<Project> app_ = timer_.library.addProject("App", acme_);
    Ref<TimeEntry> first_ = add("06:00", "06:30");
    Ref<TimeEntry> second_ = add("07:00", "07:30");
    Ref<TimeEntry> third_ = add("08:00", "08:30");
    EntryService entries_{context(), *timer_.history, *timer_.service,
                          [this] { return timer_.now; }, [this] { return timer_.calendar; }};
};

// --- delete ------------------------------------------------------------------------------------

TEST_F(PickedEntriesTest, deletedEntriesAreGoneFromTheDisk) {
    context().save();
    EXPECT_EQ(remove({first_, third_}), (EntryTally{2, 0}));
    timer_.restart();
    EXPECT_EQ(timer_.spans(), std::vector<std::string>{"07:00:00-07:30:00"});
}

TEST_F(PickedEntriesTest, aBilledEntryIsSkippedAndCountedAndTheOthersGo) {
    bill(second_);
    EXPECT_EQ(remove({first_, second_, third_}), (EntryTally{2, 1}));
    EXPECT_EQ(timer_.spans(), std::vector<std::string>{"07:00:00-07:30:00"});
    EXPECT_EQ(second_->invoice->number.get(), "INV-1");
}

TEST_F(PickedEntriesTest, deletingEntriesThatAreAllGoneDoesNothingAndSavesNothing) {
    context().save();
    remove({first_});
    third_->notes = "typed elsewhere";
    EXPECT_EQ(remove({first_}), EntryTally{});
    EXPECT_EQ(entries_.deleteEntries({}), EntryTally{});
    EXPECT_TRUE(context().hasChanges());
}

TEST_F(PickedEntriesTest, deletingTheRunningEntryStopsTheTicker) {
    timer_.service->start(website_);
    timer_.setTime("10:00");
    timer_.library.runLoop.fire();
    remove({timer_.service->running()});
    EXPECT_FALSE(timer_.service->running());
    EXPECT_EQ(timer_.service->elapsedText(), "");
    EXPECT_EQ(timer_.library.runLoop.repeatingCount(), 0U);
}

TEST_F(PickedEntriesTest, deletingAnotherEntryLeavesTheTimerRunning) {
    timer_.service->start(website_);
    const auto running = timer_.service->running();
    remove({first_});
    EXPECT_EQ(timer_.service->running(), running);
}

TEST_F(PickedEntriesTest, aDeletionThatCannotBeSavedStaysPending) {
    context().save();
    {
        const test::FileSizeLimit fullDisk(0);
        EXPECT_EQ(remove({first_}), (EntryTally{1, 0}));
        EXPECT_TRUE(context().hasChanges());
    }
    context().save();
    timer_.restart();
    EXPECT_EQ(timer_.spans().size(), 2U);
}

// --- move --------------------------------------------------------------------------------------

TEST_F(PickedEntriesTest, movedEntriesBelongToTheOtherProjectOnDisk) {
    EXPECT_EQ(move({first_, second_}, app_), (EntryTally{2, 0}));
    const auto app = app_->id();
    timer_.restart();
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
    timer_.service->start(website_);
    const auto running = timer_.service->running();
    EXPECT_EQ(move({running}, app_), (EntryTally{1, 0}));
    EXPECT_EQ(timer_.service->running(), running);
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
    EXPECT_EQ(entries_.moveEntries(picked, app_), (EntryTally{10'000, 0}));
    EXPECT_EQ(commits(), 1U);
    EXPECT_EQ(entries_.deleteEntries(picked), (EntryTally{10'000, 0}));
    EXPECT_EQ(commits(), 1U);
    EXPECT_EQ(timer_.spans().size(), 3U);
}

}  // namespace
}  // namespace elmworth
