// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoicesModel.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "screens/invoices/InvoicesTest.h"
#include "support/FailingReads.h"

namespace elmworth {
namespace {

using test::at;
using test::utf8;
using testing::ElementsAre;
using testing::IsEmpty;

class Invoices : public test::InvoicesTest {
 protected:
    QAbstractItemModelTester tester_{model.rowsModel()};
};

// --- the list ------------------------------------------------------------------------------------

TEST_F(Invoices, thereAreNoneAtFirst) {
    EXPECT_TRUE(model.isEmpty());
    EXPECT_EQ(utf8(model.countText()), "0 total");
    EXPECT_EQ(utf8(model.noneText()), "");
    EXPECT_EQ(outstanding(), "—");
    EXPECT_EQ(overdue(), "—");
    EXPECT_FALSE(detail().isOpen());
}

TEST_F(Invoices, theNewestStandFirstWithTheirTexts) {
    add("INV-1", "2026-01-10");
    add("INV-3", "2026-02-20", InvoiceStatus::sent);
    add("INV-2", "2026-02-01", InvoiceStatus::paid);
    addFor(nullptr, "INV-4", "2026-01-01", InvoiceStatus::sent);
    EXPECT_THAT(numbers(), ElementsAre("INV-3", "INV-2", "INV-1", "INV-4"));
    EXPECT_THAT(shown(InvoiceRowsModel::caption),
                ElementsAre("Acme Co · Feb 20", "Acme Co · Feb 1", "Acme Co · Jan 10", "Jan 1"));
    EXPECT_THAT(shown(InvoiceRowsModel::amount),
                ElementsAre("$100.00", "$100.00", "$100.00", "$100.00"));
    EXPECT_THAT(shown(InvoiceRowsModel::badge), ElementsAre("Sent", "Paid", "Draft", "Overdue"));
    EXPECT_THAT(shown(InvoiceRowsModel::client), ElementsAre("Acme Co", "Acme Co", "Acme Co", ""));
    EXPECT_EQ(shown(InvoiceRowsModel::summary).front(), "INV-3, Acme Co · Feb 20, $100.00, Sent");
    EXPECT_EQ(utf8(model.countText()), "4 total");
}

TEST_F(Invoices, rowsFollowTheirRecords) {
    const auto invoice = add("INV-1");
    invoice->number = "R-1";
    save();
    EXPECT_THAT(numbers(), ElementsAre("R-1"));
    acme()->name = "Acme Ltd";
    save();
    EXPECT_THAT(shown(InvoiceRowsModel::caption), ElementsAre("Acme Ltd · Feb 1"));
    bill(invoice, 1);
    EXPECT_THAT(shown(InvoiceRowsModel::amount), ElementsAre("$200.00"));
    invoice->setStatus(InvoiceStatus::paid, timer.now);
    save();
    EXPECT_THAT(shown(InvoiceRowsModel::badge), ElementsAre("Paid"));
}

TEST_F(Invoices, filtersNarrowTheRowsAndNotTheSummary) {
    add("INV-1", "2026-01-01", InvoiceStatus::sent);
    add("INV-2", "2026-02-25", InvoiceStatus::sent);
    add("INV-3", "2026-02-26", InvoiceStatus::paid);
    add("INV-4", "2026-02-27");
    EXPECT_THAT(numbers(), ElementsAre("INV-4", "INV-3", "INV-2", "INV-1"));
    filter(InvoiceFilter::open);
    EXPECT_THAT(numbers(), ElementsAre("INV-4", "INV-2", "INV-1"));
    filter(InvoiceFilter::overdue);
    EXPECT_THAT(numbers(), ElementsAre("INV-1"));
    filter(InvoiceFilter::paid);
    EXPECT_THAT(numbers(), ElementsAre("INV-3"));
    EXPECT_EQ(outstanding(), "$200.00");
    EXPECT_EQ(overdue(), "$100.00");
    EXPECT_TRUE(model.summary()->hasOverdue());
    EXPECT_EQ(utf8(model.countText()), "4 total");
}

TEST_F(Invoices, inTwoCurrenciesAreSummedUpInEach) {
    const auto globex = timer.library.addClient("Globex");
    globex->currencyCode = "EUR";
    add("INV-1", "2026-02-25", InvoiceStatus::sent);
    addFor(globex, "INV-2", "2026-02-25", InvoiceStatus::sent);
    EXPECT_EQ(outstanding(), "€100.00 · $100.00");
    EXPECT_EQ(overdue(), "—");
    EXPECT_FALSE(model.summary()->hasOverdue());
}

TEST_F(Invoices, becomeOverdueAtMidnight) {
    add("INV-1", "2026-02-16", InvoiceStatus::sent);
    EXPECT_THAT(shown(InvoiceRowsModel::badge), ElementsAre("Sent"));
    model.selection()->click(0);
    EXPECT_EQ(utf8(facts().dueCaption), "Due today");
    timer.setClock("2026-03-03T00:00:30Z");
    timer.library.runLoop.fire();
    turn();
    EXPECT_THAT(shown(InvoiceRowsModel::badge), ElementsAre("Overdue"));
    EXPECT_EQ(overdue(), "$100.00");
    EXPECT_EQ(utf8(facts().dueCaption), "1 days late");
    EXPECT_TRUE(facts().isOverdue);
}

// --- the selection -------------------------------------------------------------------------------

TEST_F(Invoices, aClickShowsTheInvoice) {
    add("INV-1", "2026-01-01");
    add("INV-2", "2026-02-01");
    model.selection()->click(1);
    EXPECT_EQ(utf8(facts().number), "INV-1");
    model.selection()->moveCurrent(-1);
    EXPECT_EQ(utf8(facts().number), "INV-2");
    model.selection()->clear();
    EXPECT_FALSE(detail().isOpen());
}

TEST_F(Invoices, anInvoiceThatAFilterHidesStaysSelected) {
    add("INV-1");
    model.selection()->click(0);
    filter(InvoiceFilter::paid);
    EXPECT_EQ(utf8(facts().number), "INV-1");
}

TEST_F(Invoices, anInvoiceThatIsDeletedElsewhereIsNoLongerSelected) {
    const auto invoice = add("INV-1");
    model.selection()->click(0);
    detail().beginRenaming();
    context().deleteRecord(invoice);
    save();
    EXPECT_FALSE(detail().isOpen());
    EXPECT_EQ(model.selection()->currentRow(), -1);
    EXPECT_THAT(numbers(), IsEmpty());
    detail().commitNumber();
    detail().setNotes(QStringLiteral("never"));
    detail().askToDelete();
    EXPECT_FALSE(confirmation.isOpen());
}

TEST_F(Invoices, anInvoiceThatIsDeletedWhileTheSectionIsHiddenIsNoLongerSelected) {
    const auto invoice = add("INV-1");
    model.selection()->click(0);
    model.setShown(false);
    context().deleteRecord(invoice);
    save();
    model.setShown(true);
    EXPECT_FALSE(detail().isOpen());
    EXPECT_THAT(numbers(), IsEmpty());
}

TEST_F(Invoices, aNewInvoiceIsSelectedAlsoWhereTheFilterWouldHideIt) {
    add("INV-1", "2026-01-01", InvoiceStatus::paid);
    filter(InvoiceFilter::paid);
    model.setShown(false);
    const auto invoice = add("INV-2");
    Q_EMIT newInvoice.created(invoice->id());
    model.setShown(true);
    EXPECT_EQ(model.filter(), static_cast<int>(InvoiceFilter::all));
    EXPECT_EQ(utf8(facts().number), "INV-2");
    EXPECT_EQ(model.selection()->currentRow(), 0);
}

TEST_F(Invoices, aNewInvoiceLeavesAFilterThatShowsIt) {
    filter(InvoiceFilter::open);
    const auto invoice = add("INV-1");
    Q_EMIT newInvoice.created(invoice->id());
    EXPECT_EQ(model.filter(), static_cast<int>(InvoiceFilter::open));
    EXPECT_EQ(utf8(facts().number), "INV-1");
}

TEST_F(Invoices, theNewInvoiceSheetOpensWithoutAClient) {
    model.openNewInvoice();
    EXPECT_TRUE(newInvoice.isOpen());
}

// --- what it costs -------------------------------------------------------------------------------

class InvoicesAtWork : public test::LibraryTest {
 protected:
    /// How often the time of an invoice was looked up since the last call.
    static std::size_t lookUps() {
        std::size_t count = 0;
        for (const auto& sql : statements()) {
            if (sql.find("TimeEntry") != std::string::npos) ++count;
        }
        return count;
    }
    void open() {
        model = std::make_unique<InvoicesModel>(services(), InvoiceOutlets{painter, files},
                                                confirmation, newInvoice);
        model->setShown(true);
    }
    void fill(int count) {
        for (int i = 0; i < count; ++i) {
            const auto invoice =
                timer.library.addInvoice("INV-" + std::to_string(1000 + i), acme());
            invoice->issueDate = at("2026-01-01T12:00Z") + std::chrono::hours(i);
            if (i % 3 == 0) invoice->setStatus(InvoiceStatus::sent, timer.now);
        }
        context().save();
        turn();
        (void)statements();
    }

    test::NumberPainter painter;
    test::NotingFiles files;
    Confirmation confirmation;
    NewInvoiceModel newInvoice{services()};
    std::unique_ptr<InvoicesModel> model;
};

TEST_F(InvoicesAtWork, openingReadsTheTimeOfThoseThatAreSentInSteps) {
    fill(300);
    open();
    EXPECT_EQ(lookUps(), 32U);
    EXPECT_EQ(utf8(model->summary()->outstanding()), "…");
    for (int i = 0; i < 4; ++i) turn();
    EXPECT_EQ(lookUps(), 68U);
    EXPECT_EQ(utf8(model->summary()->outstanding()), "$0.00");
}

TEST_F(InvoicesAtWork, aRowIsReadWhenItIsLookedAtAndOnce) {
    fill(10);
    open();
    turn();
    (void)statements();
    const auto look = [this](int row) {
        (void)model->rows().data(model->rows().index(row), InvoiceRowsModel::amount);
        (void)model->rows().data(model->rows().index(row), InvoiceRowsModel::caption);
    };
    look(1);
    EXPECT_EQ(lookUps(), 1U);
    look(1);
    EXPECT_EQ(lookUps(), 0U);
}

TEST_F(InvoicesAtWork, aStatusReadsNoTimeOfOtherInvoices) {
    fill(100);
    open();
    for (int i = 0; i < 4; ++i) turn();
    model->selection()->click(2);
    (void)statements();
    model->detail()->takeNextStep();
    turn();
    EXPECT_LE(lookUps(), 2U);  // of the one that is selected, for its pages
}

TEST_F(InvoicesAtWork, aHiddenSectionReadsNothing) {
    fill(10);
    open();
    turn();
    model->setShown(false);
    (void)statements();
    const auto invoice = timer.library.addInvoice("INV-1", acme());
    context().save();
    turn();
    const auto ran = statements();
    EXPECT_THAT(ran, testing::Each(testing::Not(testing::HasSubstr("SELECT"))));
    EXPECT_EQ(timer.library.runLoop.repeatingCount(), 0U);
    model->setShown(true);
    EXPECT_EQ(model->rows().rowCount(), 11);
}

}  // namespace
}  // namespace elmworth
