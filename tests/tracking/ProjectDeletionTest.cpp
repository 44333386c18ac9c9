// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/ProjectDeletion.h"

#include <gtest/gtest.h>

#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;

class ProjectDeletionTest : public testing::Test {
 protected:
    [[nodiscard]] UnitOfWork& context() { return library_.context(); }

    Instant now_ = at("2026-03-02T12:00Z");
    test::TestLibrary library_;
    Ref<Client> client_ = library_.addClient("Acme");
    Ref<Project> website_ = library_.addProject("Website", client_);
    Ref<TimeEntry> first_ = library_.addEntry(website_, now_ - 2h, now_ - 1h);
    Ref<TimeEntry> second_ = library_.addEntry(website_, now_ - 4h, now_ - 3h);
    TimerService timer_{context(), [this] { return now_; }, library_.runLoop,
                        [] { return Calendar(Locale("en_US"), "UTC"); }};
};

TEST_F(ProjectDeletionTest, OneBilledEntryMakesInvoicedTime) {
    EXPECT_FALSE(hasInvoicedTime(*website_));
    first_->invoice = library_.addInvoice("A", client_);
    EXPECT_TRUE(hasInvoicedTime(*website_));
    EXPECT_FALSE(hasInvoicedTime(*library_.addProject("App", client_)));
    context().save();
    EXPECT_TRUE(hasInvoicedTime(*website_));
}

TEST_F(ProjectDeletionTest, AProjectThatIsInNoLibraryHasNoInvoicedTime) {
    EXPECT_FALSE(hasInvoicedTime(Project("Loose", nullptr)));
}

TEST_F(ProjectDeletionTest, WithoutInvoicedTimeEverythingGoes) {
    context().save();
    EXPECT_TRUE(deleteOrArchiveProject(website_, context(), timer_));
    library_.reopen();
    EXPECT_EQ(context().fetchCount<Project>(), 0U);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
    EXPECT_EQ(context().fetchCount<Client>(), 1U);
}

TEST_F(ProjectDeletionTest, WithInvoicedTimeItIsArchivedAndNoEntryIsTouched) {
    first_->invoice = library_.addInvoice("A", client_);
    EXPECT_FALSE(deleteOrArchiveProject(website_, context(), timer_));
    library_.reopen();
    ASSERT_EQ(context().fetchCount<Project>(), 1U);
    EXPECT_TRUE(context().fetch<Project>()[0]->isArchived);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 2U);
}

TEST_F(ProjectDeletionTest, TheTimerForgetsTheEntryThatWentWithIt) {
    timer_.start(website_);
    deleteOrArchiveProject(website_, context(), timer_);
    EXPECT_FALSE(timer_.running());
    EXPECT_EQ(timer_.elapsedText(), "");
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
}

TEST_F(ProjectDeletionTest, ArchivingLeavesTheTimerRunning) {
    first_->invoice = library_.addInvoice("A", client_);
    timer_.start(website_);
    deleteOrArchiveProject(website_, context(), timer_);
    EXPECT_TRUE(timer_.running());
}

}  // namespace
}  // namespace elmworth
