// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/EntryForm.h"

#include <gtest/gtest.h>

#include "support/FileSizeLimit.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;

class EntryFormTest : public testing::Test {
 protected:
    [[nodiscard]] EntryForm form() const {
        return {website_, now_ - 2h, now_ - 1h, "Landing page", false};
    }

    Instant now_ = at("2026-03-02T12:00Z");
    test::TestLibrary library_;
    Ref<Project> website_ = library_.addProject("Website", library_.addClient("Acme"));
    TimerService timer_{library_.context(), [this] { return now_; }, library_.runLoop,
                        [] { return Calendar(Locale("en_US"), "UTC"); }};
};

TEST_F(EntryFormTest, AFinishedSpanOnAProjectCanBeSaved) {
    EXPECT_EQ(form().problem(now_), std::nullopt);
}

TEST_F(EntryFormTest, AProjectMustBeChosen) {
    auto form = this->form();
    form.project = nullptr;
    EXPECT_EQ(form.problem(now_), "Choose a project.");
}

TEST_F(EntryFormTest, TheEndMustBeAfterTheStart) {
    auto form = this->form();
    form.end = form.start;
    EXPECT_EQ(form.problem(now_), "End must be after start.");
    form.end = form.start - 1s;
    EXPECT_EQ(form.problem(now_), "End must be after start.");
    form.end = form.start + 1us;
    EXPECT_EQ(form.problem(now_), std::nullopt);
}

TEST_F(EntryFormTest, ARunningEntryHasNoEndToLookAt) {
    auto form = this->form();
    form.wasRunning = true;
    form.end = form.start - 1h;
    EXPECT_EQ(form.problem(now_), std::nullopt);
}

TEST_F(EntryFormTest, OnlyTheStartMayNotLieInTheFuture) {
    auto form = this->form();
    form.start = now_;
    form.end = now_ + 24h;
    EXPECT_EQ(form.problem(now_), std::nullopt);
    form.start = now_ + 1us;
    EXPECT_EQ(form.problem(now_), "The start can't be in the future.");
    form.wasRunning = true;
    EXPECT_EQ(form.problem(now_), "The start can't be in the future.");
}

TEST_F(EntryFormTest, ANewEntryIsOnDisk) {
    const auto id = form().save(nullptr, library_.context(), timer_)->persistentModelID();
    library_.reopen();
    const auto entry = library_.context().record<TimeEntry>(id);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->project->name.get(), "Website");
    EXPECT_EQ(entry->start.get(), now_ - 2h);
    EXPECT_EQ(entry->end.get(), now_ - 1h);
    EXPECT_EQ(entry->notes.get(), "Landing page");
}

TEST_F(EntryFormTest, AnEntryTakesEveryFieldOfTheForm) {
    const auto entry = library_.addEntry(nullptr, now_ - 9h, now_ - 8h);
    EXPECT_EQ(form().save(entry, library_.context(), timer_), entry);
    EXPECT_EQ(entry->project.get(), website_);
    EXPECT_EQ(entry->start.get(), now_ - 2h);
    EXPECT_EQ(entry->end.get(), now_ - 1h);
    EXPECT_EQ(entry->notes.get(), "Landing page");
    EXPECT_EQ(library_.context().fetchCount<TimeEntry>(), 1U);
}

TEST_F(EntryFormTest, ARunningEntryStaysRunningAndShowsItsNewTimeAtOnce) {
    timer_.start(website_);
    auto form = this->form();
    form.wasRunning = true;
    form.start = now_ - 65min;
    form.save(timer_.running(), library_.context(), timer_);
    ASSERT_TRUE(timer_.running());
    EXPECT_TRUE(timer_.running()->isRunning());
    EXPECT_EQ(timer_.elapsedLongText(), "1:05:00");
}

TEST_F(EntryFormTest, AnEntryThatCannotBeSavedStaysPending) {
    library_.context().save();
    {
        const test::FileSizeLimit fullDisk(0);
        form().save(nullptr, library_.context(), timer_);
        EXPECT_TRUE(library_.context().hasChanges());
    }
    library_.context().save();
    library_.reopen();
    EXPECT_EQ(library_.context().fetchCount<TimeEntry>(), 1U);
}

}  // namespace
}  // namespace elmworth
