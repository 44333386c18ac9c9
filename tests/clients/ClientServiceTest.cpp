// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clients/ClientService.h"

#include <gtest/gtest.h>

#include "support/FileSizeLimit.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"
#include "tracking/EntryUndoGuard.h"
#include "tracking/TimerService.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;

class ClientServiceTest : public testing::Test {
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
    UndoHistory history_{context()};
    ClientService clients_{context(), history_, TimerCalls::of(timer_), [this] { return now_; }};
};

TEST_F(ClientServiceTest, aClientWithoutInvoicesMayGo) {
    EXPECT_FALSE(hasInvoices(*client_));
    context().save();
    EXPECT_FALSE(hasInvoices(*client_));
}

TEST_F(ClientServiceTest, anInvoiceKeepsItsClient) {
    library_.addInvoice("A", client_);
    EXPECT_TRUE(hasInvoices(*client_));
    EXPECT_FALSE(hasInvoices(*other_));
    context().save();
    EXPECT_TRUE(hasInvoices(*client_));
}

TEST_F(ClientServiceTest, timeOnTheInvoiceOfAnotherClientKeepsTheClientToo) {
    entry_->invoice = library_.addInvoice("A", other_);
    EXPECT_TRUE(hasInvoices(*client_));
}

TEST_F(ClientServiceTest, projectsAndTimeGoWithTheClient) {
    context().save();
    clients_.remove(client_);
    library_.reopen();
    ASSERT_EQ(context().fetchCount<Client>(), 1U);
    EXPECT_EQ(context().fetch<Client>()[0]->name.get(), "Globex");
    EXPECT_EQ(context().fetchCount<Project>(), 0U);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
}

TEST_F(ClientServiceTest, theTimerOnTheClientStopsAndItsEntryGoes) {
    timer_.start(website_);
    now_ += 1h;
    int stops = 0;
    const auto observation = timer_.observe([&](TimerService::Property property) {
        if (property != TimerService::Property::running) return;
        ++stops;
        EXPECT_FALSE(client_->isDeleted()) << "it stops before the client goes";
    });
    clients_.remove(client_);
    EXPECT_EQ(stops, 1);
    EXPECT_FALSE(timer_.running());
    EXPECT_EQ(timer_.elapsedText(), "");
    EXPECT_EQ(library_.runLoop.repeatingCount(), 0U);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
}

TEST_F(ClientServiceTest, theTimerOnAnotherClientRunsOn) {
    timer_.start(library_.addProject("App", other_));
    clients_.remove(client_);
    ASSERT_TRUE(timer_.running());
    EXPECT_TRUE(timer_.running()->isRunning());
}

TEST_F(ClientServiceTest, aTimerWithoutAProjectRunsOn) {
    timer_.start(nullptr);
    clients_.remove(client_);
    EXPECT_TRUE(timer_.running());
}

TEST_F(ClientServiceTest, aClientWithInvoicesIsNotDeleted) {
    library_.addInvoice("A", client_);
    context().save();
    timer_.start(website_);
    try {
        clients_.remove(client_);
        FAIL();
    } catch (const Refused& why) {
        EXPECT_STREQ(why.what(), "Delete Acme's invoices first.");
    }
    EXPECT_FALSE(client_->isDeleted());
    EXPECT_TRUE(timer_.running()) << "nothing has changed";
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
        timer_.setHistory(steps_);
        timer_.start(website_);
        tracked_ = timer_.running()->id();
        now_ += 1h;
    }
    [[nodiscard]] std::size_t runningCount() {
        return context().fetchCount<TimeEntry>({.predicate = key<&TimeEntry::end>() == absent});
    }

    UndoHistory steps_{context(), [this] { return now_; }};
    EntryUndoGuard guard_{timer_};
    ClientService service_{context(), steps_, TimerCalls::of(timer_), [this] { return now_; }};
    PersistentID tracked_;
};

TEST_F(ClientServiceStepsTest, aDeletionThatStopsTheTimerIsOneStep) {
    service_.remove(client_);
    EXPECT_EQ(steps_.undoText(), "Undo Delete Acme");
    steps_.undo();
    EXPECT_EQ(steps_.undoText(), "Undo Start Timer");
}

TEST_F(ClientServiceStepsTest, itsUndoBringsTheEntryBackAsItWasStopped) {
    const Instant stopped = now_;
    service_.remove(client_);
    now_ += 1h;
    EXPECT_EQ(steps_.undo().notice(), "");
    EXPECT_EQ(context().fetchCount<Client>(), 2U);
    EXPECT_EQ(context().fetchCount<Project>(), 1U);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 2U);
    EXPECT_EQ(context().record<TimeEntry>(tracked_)->end.get(), stopped);
    EXPECT_FALSE(timer_.running());
    EXPECT_EQ(runningCount(), 0U);
    steps_.redo();
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
}

TEST_F(ClientServiceStepsTest, itsUndoLeavesANewerTimerRunning) {
    service_.remove(client_);
    timer_.setHistory(history_);  // as somebody else starts it
    timer_.start(nullptr);
    const auto newer = timer_.running()->id();
    now_ += 1h;
    EXPECT_EQ(steps_.undo().notice(), "");
    EXPECT_EQ(timer_.running()->id(), newer);
    EXPECT_EQ(runningCount(), 1U);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 3U);
}

// --- adding and editing ------------------------------------------------------------------------

TEST_F(ClientServiceTest, aFormMakesAClientOfNow) {
    const auto client = clients_.add(ClientForm{.name = " Initech "});
    library_.reopen();
    const auto stored = context().record<Client>(client->id());
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->name.get(), "Initech");
    EXPECT_EQ(stored->createdAt.get(), now_);
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
