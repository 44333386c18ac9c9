// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/ClientDeletion.h"

#include <gtest/gtest.h>

#include "support/FileSizeLimit.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;

class ClientDeletionTest : public testing::Test {
 protected:
    [[nodiscard]] UnitOfWork& context() { return library_.context(); }

    Instant now_ = at("2026-03-02T12:00Z");
    test::TestLibrary library_;
    Ref<Client> client_ = library_.addClient("Acme");
    Ref<Project> website_ = library_.addProject("Website", client_);
    Ref<TimeEntry> entry_ = library_.addEntry(website_, now_ - 2h, now_ - 1h);
    Ref<Client> other_ = library_.addClient("Globex");
    TimerService timer_{context(), [this] { return now_; }, library_.runLoop,
                        [] { return Calendar(Locale("en_US"), "UTC"); }};
};

TEST_F(ClientDeletionTest, AClientWithoutInvoicesMayGo) {
    EXPECT_FALSE(hasInvoices(*client_));
    context().save();
    EXPECT_FALSE(hasInvoices(*client_));
}

TEST_F(ClientDeletionTest, AnInvoiceKeepsItsClient) {
    library_.addInvoice("A", client_);
    EXPECT_TRUE(hasInvoices(*client_));
    EXPECT_FALSE(hasInvoices(*other_));
    context().save();
    EXPECT_TRUE(hasInvoices(*client_));
}

TEST_F(ClientDeletionTest, TimeOnTheInvoiceOfAnotherClientKeepsTheClientToo) {
    entry_->invoice = library_.addInvoice("A", other_);
    EXPECT_TRUE(hasInvoices(*client_));
}

TEST_F(ClientDeletionTest, ProjectsAndTimeGoWithTheClient) {
    context().save();
    deleteClient(client_, context(), timer_);
    library_.reopen();
    ASSERT_EQ(context().fetchCount<Client>(), 1U);
    EXPECT_EQ(context().fetch<Client>()[0]->name.get(), "Globex");
    EXPECT_EQ(context().fetchCount<Project>(), 0U);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
}

TEST_F(ClientDeletionTest, TheTimerOnTheClientStopsAndItsEntryGoes) {
    timer_.start(website_);
    now_ += 1h;
    int stops = 0;
    const auto observation = timer_.observe([&](TimerService::Property property) {
        if (property != TimerService::Property::running) return;
        ++stops;
        EXPECT_FALSE(client_->isDeleted()) << "it stops before the client goes";
    });
    deleteClient(client_, context(), timer_);
    EXPECT_EQ(stops, 1);
    EXPECT_FALSE(timer_.running());
    EXPECT_EQ(timer_.elapsedText(), "");
    EXPECT_EQ(library_.runLoop.repeatingCount(), 0U);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
}

TEST_F(ClientDeletionTest, TheTimerOnAnotherClientRunsOn) {
    timer_.start(library_.addProject("App", other_));
    deleteClient(client_, context(), timer_);
    ASSERT_TRUE(timer_.running());
    EXPECT_TRUE(timer_.running()->isRunning());
}

TEST_F(ClientDeletionTest, ATimerWithoutAProjectRunsOn) {
    timer_.start(nullptr);
    deleteClient(client_, context(), timer_);
    EXPECT_TRUE(timer_.running());
}

TEST_F(ClientDeletionTest, ADeletionThatCannotBeSavedStaysPending) {
    context().save();
    {
        const test::FileSizeLimit fullDisk(0);
        deleteClient(client_, context(), timer_);
    }
    EXPECT_TRUE(client_->isDeleted());
    context().save();
    library_.reopen();
    EXPECT_EQ(context().fetchCount<Client>(), 1U);
}

}  // namespace
}  // namespace elmworth
