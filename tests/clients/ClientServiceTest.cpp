// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clients/ClientService.h"

#include <gtest/gtest.h>

#include "support/FileSizeLimit.h"
#include "support/LibraryTest.h"
#include "tracking/EntryUndoGuard.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;

class ClientServiceTest : public test::LibraryTest {
 protected:
    Ref<Client> client_ = timer.library.addClient("Acme");
    Ref<Project> website_ = project("Website", client_);
    Ref<TimeEntry> entry_ = entry(website_, "07:00", "08:00");
    Ref<Client> other_ = timer.library.addClient("Globex");
    UndoHistory history_{context()};
    ClientService clients_{context(), history_, TimerCalls::of(service()),
                           [this] { return timer.now; }};
};

TEST_F(ClientServiceTest, aClientWithoutInvoicesMayGo) {
    EXPECT_FALSE(hasInvoices(*client_));
    context().save();
    EXPECT_FALSE(hasInvoices(*client_));
}

TEST_F(ClientServiceTest, anInvoiceKeepsItsClient) {
    timer.library.addInvoice("A", client_);
    EXPECT_TRUE(hasInvoices(*client_));
    EXPECT_FALSE(hasInvoices(*other_));
    context().save();
    EXPECT_TRUE(hasInvoices(*client_));
}

TEST_F(ClientServiceTest, timeOnTheInvoiceOfAnotherClientKeepsTheClientToo) {
    entry_->invoice = timer.library.addInvoice("A", other_);
    EXPECT_TRUE(hasInvoices(*client_));
}

TEST_F(ClientServiceTest, projectsAndTimeGoWithTheClient) {
    context().save();
    clients_.remove(client_);
    timer.library.reopen();
    ASSERT_EQ(context().fetchCount<Client>(), 1U);
    EXPECT_EQ(context().fetch<Client>()[0]->name.get(), "Globex");
    EXPECT_EQ(context().fetchCount<Project>(), 0U);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
}

TEST_F(ClientServiceTest, theTimerOnTheClientStopsAndItsEntryGoes) {
    service().start(website_);
    timer.now += 1h;
    int stops = 0;
    const auto observation = service().observe([&](TimerService::Property property) {
        if (property != TimerService::Property::running) return;
        ++stops;
        EXPECT_FALSE(client_->isDeleted()) << "it stops before the client goes";
    });
    clients_.remove(client_);
    EXPECT_EQ(stops, 1);
    EXPECT_FALSE(service().running());
    EXPECT_EQ(service().elapsedText(), "");
    EXPECT_EQ(timer.library.runLoop.repeatingCount(), 0U);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
}

TEST_F(ClientServiceTest, theTimerOnAnotherClientRunsOn) {
    service().start(timer.library.addProject("App", other_));
    clients_.remove(client_);
    ASSERT_TRUE(service().running());
    EXPECT_TRUE(service().running()->isRunning());
}

TEST_F(ClientServiceTest, aTimerWithoutAProjectRunsOn) {
    service().start(nullptr);
    clients_.remove(client_);
    EXPECT_TRUE(service().running());
}

TEST_F(ClientServiceTest, aClientWithInvoicesIsNotDeleted) {
    timer.library.addInvoice("A", client_);
    context().save();
    service().start(website_);
    try {
        clients_.remove(client_);
        FAIL();
    } catch (const Refused& why) {
        EXPECT_STREQ(why.what(), "Delete Acme's invoices first.");
    }
    EXPECT_FALSE(client_->isDeleted());
    EXPECT_TRUE(service().running()) << "nothing has changed";
}

TEST_F(ClientServiceTest, aDeletionThatCannotBeSavedIsNotDone) {
    context().save();
    {
        const test::FileSizeLimit fullDisk(0);
        EXPECT_THROW(clients_.remove(client_), StoreError);
    }
    EXPECT_FALSE(client_->isDeleted());
    EXPECT_FALSE(context().hasChanges());
}

/// A history that also has what the timer does, as in the program.
class ClientServiceStepsTest : public ClientServiceTest {
 protected:
    ClientServiceStepsTest() {
        context().save();
        steps_.setGuard(guard_);
        service().setHistory(steps_);
        service().start(website_);
        tracked_ = service().running()->id();
        timer.now += 1h;
    }
    [[nodiscard]] std::size_t runningCount() {
        return context().fetchCount<TimeEntry>({.predicate = key<&TimeEntry::end>() == absent});
    }

    UndoHistory steps_{context(), [this] { return timer.now; }};
    EntryUndoGuard guard_{service()};
    ClientService service_{context(), steps_, TimerCalls::of(service()),
                           [this] { return timer.now; }};
    PersistentID tracked_;
};

TEST_F(ClientServiceStepsTest, aDeletionThatStopsTheTimerIsOneStep) {
    service_.remove(client_);
    EXPECT_EQ(steps_.undoText(), "Undo Delete Acme");
    steps_.undo();
    EXPECT_EQ(steps_.undoText(), "Undo Start Timer");
}

TEST_F(ClientServiceStepsTest, itsUndoBringsTheEntryBackAsItWasStopped) {
    const Instant stopped = timer.now;
    service_.remove(client_);
    timer.now += 1h;
    EXPECT_EQ(steps_.undo().notice(), "");
    EXPECT_EQ(context().fetchCount<Client>(), 2U);
    EXPECT_EQ(context().fetchCount<Project>(), 1U);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 2U);
    EXPECT_EQ(context().record<TimeEntry>(tracked_)->end.get(), stopped);
    EXPECT_FALSE(service().running());
    EXPECT_EQ(runningCount(), 0U);
    steps_.redo();
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
}

TEST_F(ClientServiceStepsTest, itsUndoLeavesANewerTimerRunning) {
    service_.remove(client_);
    service().setHistory(history_);  // as somebody else starts it
    service().start(nullptr);
    const auto newer = service().running()->id();
    timer.now += 1h;
    EXPECT_EQ(steps_.undo().notice(), "");
    EXPECT_EQ(service().running()->id(), newer);
    EXPECT_EQ(runningCount(), 1U);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 3U);
}

// --- adding and editing ------------------------------------------------------------------------

TEST_F(ClientServiceTest, aFormMakesAClientOfNow) {
    const auto client = clients_.add(ClientForm{.name = " Initech "});
    timer.library.reopen();
    const auto stored = context().record<Client>(client->id());
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->name.get(), "Initech");
    EXPECT_EQ(stored->createdAt.get(), timer.now);
}

TEST_F(ClientServiceTest, aFormThatCannotBeSavedMakesNoClient) {
    EXPECT_THROW(clients_.add(ClientForm{.name = ""}), Refused);
    EXPECT_EQ(context().fetchCount<Client>(), 2U);
}

TEST_F(ClientServiceTest, anEditIsSavedWholeOrNotDone) {
    auto form = ClientForm::of(*client_, {});
    form.rateText = "120";
    clients_.edit(client_, form);
    EXPECT_FALSE(context().hasChanges());
    EXPECT_EQ(client_->hourlyRateCents.get(), 12000);
    EXPECT_THROW(clients_.edit(client_,
                               [](Client& edited) {
                                   edited.email = "a@b";
                                   edited.hourlyRateCents = parseRate("ten").value();
                               }),
                 Refused);
    const test::FileSizeLimit fullDisk(0);
    form.rateText = "130";
    EXPECT_THROW(clients_.edit(client_, form), StoreError);
    EXPECT_EQ(client_->hourlyRateCents.get(), 12000);
    EXPECT_EQ(client_->email.get(), "");
    EXPECT_FALSE(context().hasChanges());
}

}  // namespace
}  // namespace elmworth
