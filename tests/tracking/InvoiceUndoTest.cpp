// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceBuilder.h"
#include "support/LibraryText.h"
#include "tracking/HistoryTest.h"

// What an undo does to billed time: an invoice is whole, or it is not there.

namespace elmworth {
namespace {

class InvoiceUndoTest : public test::HistoryTest {
 protected:
    InvoiceUndoTest() {
        acme_->hourlyRateCents = 9000;
        context().save();
        start_ = text();
    }
    Ref<Invoice> create() {
        Ref<Invoice> invoice;
        history().perform("Create Invoice", [&] {
            invoice = builder_.createInvoice(acme_, test::TestTimer::today("00:00"),
                                             test::TestTimer::today("23:00"), 0, profile_);
        });
        return invoice;
    }
    void deleteInvoice(const Ref<Invoice>& invoice) {
        history().perform("Delete Invoice", [&] { builder_.deleteInvoice(invoice); });
    }
    [[nodiscard]] Ref<Invoice> invoice() {
        const auto all = context().fetch<Invoice>();
        return all.empty() ? nullptr : all.front();
    }
    [[nodiscard]] std::string text() { return test::libraryText(context()); }

    BusinessProfile profile_;
    InvoiceBuilder builder_{context(), [this] { return timer.now; }, timer.calendar};
    std::string start_;
};

TEST_F(InvoiceUndoTest, aCreatedInvoiceGoesAndItsEntriesAreFreeAgain) {
    create();
    const auto billed = text();
    EXPECT_EQ(first_->billedRateCents.get(), 9000);
    EXPECT_EQ(history().undo().notice(), "");
    EXPECT_EQ(text(), start_);
    EXPECT_EQ(history().redo().notice(), "");
    EXPECT_EQ(text(), billed);
}

TEST_F(InvoiceUndoTest, theNumberOfAnUndoneInvoiceStaysUsed) {
    const std::string number = create()->number;
    history().undo();
    EXPECT_NE(create()->number.get(), number);
}

TEST_F(InvoiceUndoTest, aDeletedInvoiceComesBackWithItsEntries) {
    const auto made = create();
    const auto billed = text();
    deleteInvoice(made);
    EXPECT_EQ(history().undo().notice(), "");
    EXPECT_EQ(text(), billed);
    EXPECT_EQ(history().redo().notice(), "");
    EXPECT_EQ(text(), start_);
}

TEST_F(InvoiceUndoTest, anInvoiceThatSomebodyElseChangedStaysWithAllItsEntries) {
    create()->statusRaw = "sent";
    const auto sent = text();
    EXPECT_EQ(history().undo().notice(),
              "1 invoice was changed since and stays as it is. "
              "2 entries are on an invoice and stay as they are.");
    EXPECT_EQ(text(), sent);
    EXPECT_FALSE(history().canRedo());
}

TEST_F(InvoiceUndoTest, anInvoiceThatGotAnotherEntryStaysWithAllItsEntries) {
    const auto made = create();
    add("08:00", "08:30", "c")->invoice = made;
    context().save();
    const auto before = text();
    EXPECT_NE(history().undo().notice(), "");
    EXPECT_EQ(text(), before);
}

TEST_F(InvoiceUndoTest, anInvoiceDoesNotComeBackInPart) {
    deleteInvoice(create());
    second_->invoice = timer.library.addInvoice("Other", acme_);
    context().save();
    const auto before = text();
    EXPECT_EQ(history().undo().notice(),
              "1 entry is on an invoice and stays as it is. "
              "1 invoice and 1 entry were changed since and stay as they are.");
    EXPECT_EQ(text(), before);
}

TEST_F(InvoiceUndoTest, anInvoiceDoesNotComeBackWithoutAnEntryThatIsGone) {
    deleteInvoice(create());
    context().deleteRecord(first_);
    context().save();
    const auto before = text();
    EXPECT_NE(history().undo().notice(), "");
    EXPECT_EQ(text(), before);
}

TEST_F(InvoiceUndoTest, anInvoiceDoesNotComeBackOnceItsNumberIsTakenHoweverItIsWritten) {
    const auto made = create();
    made->number = "R\u00E9f 1";
    context().save();
    deleteInvoice(made);
    timer.library.addInvoice("Re\u0301f 1", acme_);
    context().save();
    const auto before = text();
    EXPECT_NE(history().undo().notice(), "");
    EXPECT_EQ(text(), before);
}

TEST_F(InvoiceUndoTest, anInvoiceDoesNotComeBackWithoutItsClient) {
    const auto made = create();
    made->client = timer.library.addClient("Globex");
    context().save();
    deleteInvoice(made);
    const auto globex =
        context().fetch(Query<Client>{.predicate = key<&Client::name>() == std::string("Globex")});
    context().deleteRecord(globex.at(0));
    context().save();
    const auto before = text();
    EXPECT_NE(history().undo().notice(), "");
    EXPECT_EQ(text(), before);
}

TEST_F(InvoiceUndoTest, timeThatIsOpenAgainIsNotBilledByARedo) {
    create();
    history().undo();
    service().start(website_);
    context().deleteRecord(service().running());
    first_->end = std::nullopt;
    context().save();
    EXPECT_NE(history().redo().notice(), "");
    EXPECT_FALSE(first_->invoice);
    EXPECT_FALSE(second_->invoice);
    EXPECT_EQ(invoice(), nullptr);
}

TEST_F(InvoiceUndoTest, anOlderEditOfABilledEntryStays) {
    edit(first_, "06:00", "06:45", "typed");
    const auto made = create();
    made->statusRaw = "sent";
    const auto sent = text();
    history().undo();
    EXPECT_EQ(history().undo().notice(), "1 entry is on an invoice and stays as it is.");
    EXPECT_EQ(text(), sent);
}

TEST_F(InvoiceUndoTest, detailsOfAnInvoiceAreTakenBackWhileItsTimeStays) {
    const auto made = create();
    history().perform("Edit Invoice", [&] {
        made->notes = "Thank you";
        made->taxRateBasisPoints = 1900;
    });
    history().undo();
    EXPECT_EQ(made->notes.get(), "");
    EXPECT_EQ(made->taxRateBasisPoints.get(), 0);
    EXPECT_TRUE(first_->invoice);
}

}  // namespace
}  // namespace elmworth
