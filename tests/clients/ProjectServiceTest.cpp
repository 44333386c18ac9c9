// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clients/ProjectService.h"

#include <gtest/gtest.h>

#include "support/FileSizeLimit.h"
#include "support/LibraryTest.h"

namespace elmworth {
namespace {

class ProjectServiceTest : public test::LibraryTest {
 protected:
    Ref<Client> client_ = timer.library.addClient("Acme");
    Ref<Project> website_ = project("Website", client_);
    Ref<TimeEntry> first_ = entry(website_, "07:00", "08:00");
    Ref<TimeEntry> second_ = entry(website_, "05:00", "06:00");
    UndoHistory history_{context()};
    ProjectService projects_{context(), history_, TimerCalls::of(service())};
};

TEST_F(ProjectServiceTest, oneBilledEntryMakesInvoicedTime) {
    EXPECT_FALSE(hasInvoicedTime(*website_));
    first_->invoice = timer.library.addInvoice("A", client_);
    EXPECT_TRUE(hasInvoicedTime(*website_));
    EXPECT_FALSE(hasInvoicedTime(*timer.library.addProject("App", client_)));
    context().save();
    EXPECT_TRUE(hasInvoicedTime(*website_));
}

TEST_F(ProjectServiceTest, aProjectThatIsInNoLibraryHasNoInvoicedTime) {
    EXPECT_FALSE(hasInvoicedTime(Project("Loose", nullptr)));
}

TEST_F(ProjectServiceTest, withoutInvoicedTimeEverythingGoes) {
    context().save();
    EXPECT_TRUE(projects_.remove(website_));
    timer.library.reopen();
    EXPECT_EQ(context().fetchCount<Project>(), 0U);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
    EXPECT_EQ(context().fetchCount<Client>(), 1U);
}

TEST_F(ProjectServiceTest, withInvoicedTimeItIsArchivedAndNoEntryIsTouched) {
    first_->invoice = timer.library.addInvoice("A", client_);
    EXPECT_FALSE(projects_.remove(website_));
    timer.library.reopen();
    ASSERT_EQ(context().fetchCount<Project>(), 1U);
    EXPECT_TRUE(context().fetch<Project>()[0]->isArchived);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 2U);
}

TEST_F(ProjectServiceTest, theTimerForgetsTheEntryThatWentWithIt) {
    service().start(website_);
    projects_.remove(website_);
    EXPECT_FALSE(service().running());
    EXPECT_EQ(service().elapsedText(), "");
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
}

TEST_F(ProjectServiceTest, archivingLeavesTheTimerRunning) {
    first_->invoice = timer.library.addInvoice("A", client_);
    service().start(website_);
    projects_.remove(website_);
    EXPECT_TRUE(service().running());
}

TEST_F(ProjectServiceTest, aDeletionThatCannotBeSavedLeavesTheTimerRunning) {
    service().start(website_);
    const test::FileSizeLimit fullDisk(0);
    EXPECT_THROW(projects_.remove(website_), StoreError);
    EXPECT_FALSE(website_->isDeleted());
    EXPECT_TRUE(service().running());
}

// --- adding, editing, moving -------------------------------------------------------------------

TEST_F(ProjectServiceTest, aFormMakesAProject) {
    const auto project = projects_.add(ProjectForm{.name = " App ", .client = client_});
    timer.library.reopen();
    const auto stored = context().record<Project>(project->id());
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->name.get(), "App");
}

TEST_F(ProjectServiceTest, aProjectMovesToAnotherClient) {
    const auto other = timer.library.addClient("Globex");
    projects_.move(website_, other);
    EXPECT_EQ(website_->client.get(), other);
    auto form = ProjectForm::of(*website_);
    form.client = client_;
    projects_.edit(website_, form);
    EXPECT_EQ(website_->client.get(), client_);
    EXPECT_FALSE(context().hasChanges());
}

TEST_F(ProjectServiceTest, invoicedTimeKeepsAProjectWithItsClientWhateverElseIsEdited) {
    first_->invoice = timer.library.addInvoice("A", client_);
    const auto other = timer.library.addClient("Globex");
    context().save();
    auto form = ProjectForm::of(*website_);
    form.name = "Site";
    projects_.edit(website_, form);
    EXPECT_EQ(website_->name.get(), "Site");
    form.client = other;
    EXPECT_THROW(projects_.edit(website_, form), Refused);
    try {
        projects_.move(website_, other);
        FAIL();
    } catch (const Refused& why) {
        EXPECT_STREQ(why.what(), "Projects with invoiced time stay with their client.");
    }
    EXPECT_EQ(website_->client.get(), client_);
}

TEST_F(ProjectServiceTest, archivingIsSavedBothWays) {
    for (const bool isArchived : {true, false}) {
        projects_.setArchived(website_, isArchived);
        EXPECT_EQ(website_->isArchived.get(), isArchived);
        EXPECT_FALSE(context().hasChanges());
    }
}

}  // namespace
}  // namespace elmworth
