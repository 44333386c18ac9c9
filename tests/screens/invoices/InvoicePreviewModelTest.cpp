// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoicePreviewModel.h"

#include <gmock/gmock.h>

#include "support/Invoices.h"

namespace elmworth {
namespace {

using test::plainInvoice;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

/// A preview, and which of its pages it said look different.
class InvoicePreviewModelTest : public testing::Test {
 protected:
    InvoicePreviewModelTest() {
        QObject::connect(&preview, &InvoicePreviewModel::pageChanged,
                         [this](int page) { changed.push_back(page); });
    }
    void show(const InvoiceRenderModel& invoice, PaperSize paper = PaperSize::letter) {
        changed.clear();
        preview.show(invoice, paper);
    }
    [[nodiscard]] std::string text(std::size_t page) const {
        return preview.rows().at(page).text.toStdString();
    }

    InvoicePreviewModel preview;
    std::vector<int> changed;
};

TEST_F(InvoicePreviewModelTest, hasTheRowsOfTheInvoicesPages) {
    show(plainInvoice(56));
    ASSERT_THAT(preview.rows(), SizeIs(3));
    EXPECT_EQ(preview.rows()[1].title, QStringLiteral("Page 2 of 3"));
    EXPECT_THAT(text(0), HasSubstr("Note21"));
    EXPECT_THAT(text(1), Not(HasSubstr("Note21")));
    EXPECT_THAT(text(1), HasSubstr("Note22"));
}

TEST_F(InvoicePreviewModelTest, readsAPageFromItsHeadToItsTotal) {
    auto invoice = plainInvoice(2);
    invoice.taxLabel = "VAT (19%)";
    invoice.tax = "$225.63";
    invoice.total = "$1,413.13";
    invoice.notes = "Thank you";
    invoice.paymentInstructions = "IBAN XX00";
    show(invoice);
    EXPECT_EQ(text(0), R"(INVOICE INV-2026-014
Issued Apr 1, 2026
Due Apr 15, 2026
Ada Byron Design
12 Analytical Row
London
ada@byron.test
Tax ID: GB 123
BILL TO
Northwind Traders
400 Harbor Blvd
Seattle
pay@northwind.test
PERIOD Mar 1, 2026 – Mar 31, 2026
DESCRIPTION HOURS RATE AMOUNT
Website 12.50 $95.00 $1,187.50
Mar 2, 2026 Note1 1.25
Subtotal $1,187.50
VAT (19%) $225.63
Total $1,413.13
NOTES Thank you
PAYMENT IBAN XX00)");
}

TEST_F(InvoicePreviewModelTest, readsNoTaxWhereThePageHasNone) {
    show(plainInvoice(1));
    EXPECT_THAT(text(0), Not(HasSubstr("$0.00")));
}

TEST_F(InvoicePreviewModelTest, aPageOfTotalsAloneHasNoTable) {
    show(plainInvoice(13));
    ASSERT_THAT(preview.rows(), SizeIs(2));
    EXPECT_EQ(text(1), "Subtotal $1,187.50\nTotal $1,187.50");
}

TEST_F(InvoicePreviewModelTest, theSameInvoiceAgainChangesNothing) {
    show(plainInvoice(56));
    show(plainInvoice(56));
    EXPECT_THAT(changed, IsEmpty());
}

TEST_F(InvoicePreviewModelTest, notesChangeTheLastPageAlone) {
    auto invoice = plainInvoice(56);
    show(invoice);
    invoice.notes = "Thank you";
    show(invoice);
    EXPECT_THAT(changed, ElementsAre(2));
}

TEST_F(InvoicePreviewModelTest, theNumberChangesTheFirstPageAlone) {
    auto invoice = plainInvoice(56);
    show(invoice);
    invoice.number = "2026-7";
    show(invoice);
    EXPECT_THAT(changed, ElementsAre(0));
}

TEST_F(InvoicePreviewModelTest, aRowChangesItsPageAlone) {
    auto invoice = plainInvoice(56);
    show(invoice);
    invoice.rows[30] = test::EntryRow{"Mar 3, 2026", "Mended", "1.25"};
    show(invoice);
    EXPECT_THAT(changed, ElementsAre(1));
}

TEST_F(InvoicePreviewModelTest, anotherCountOfPagesChangesTheirFooters) {
    show(plainInvoice(13));
    show(plainInvoice(56));
    EXPECT_THAT(changed, ElementsAre(0, 1));
}

TEST_F(InvoicePreviewModelTest, otherPaperChangesAllPagesAndTheirShape) {
    show(plainInvoice(13));
    EXPECT_DOUBLE_EQ(preview.pageRatio(), 792.0 / 612);
    show(plainInvoice(13), PaperSize::a4);
    EXPECT_DOUBLE_EQ(preview.pageRatio(), 842.0 / 595);
    EXPECT_THAT(changed, ElementsAre(0, 1));
}

TEST_F(InvoicePreviewModelTest, clearedItHasNoPage) {
    show(plainInvoice(13));
    preview.clear();
    EXPECT_THAT(preview.rows(), IsEmpty());
}

}  // namespace
}  // namespace elmworth
