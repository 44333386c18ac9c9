// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoicePageView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "invoicing/InvoicePDFRenderer.h"
#include "support/Invoices.h"
#include "support/PdfText.h"
#include "support/TemporaryFolder.h"

namespace elmworth {

static void PrintTo(PaperSize paper, std::ostream* out) {
    *out << rawValue(paper);
}

namespace {

using test::Box;
using test::EntryRow;
using test::PdfPage;
using test::plainInvoice;
using test::ProjectRow;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double tolerance = 0.1;
constexpr double margin = 48;
constexpr double rowHeight = 17;
constexpr double hoursFromRight = 90 + 8 + 80 + 8;
constexpr double rateFromRight = 90 + 8;

/// The height of a line of our font.
constexpr double lineHeight(double size) {
    return size * (2728 + 680) / 2816;
}

std::vector<PdfPage> printed(const InvoiceRenderModel& model, PaperSize paper) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "invoice.pdf";
    InvoicePDFRenderer::render(model, paper, file);
    return test::pdfPages(file);
}

/// Every measure holds on either paper.
class InvoicePageViewTest : public testing::TestWithParam<PaperSize> {
 protected:
    [[nodiscard]] static std::vector<PdfPage> printed(const InvoiceRenderModel& model) {
        return elmworth::printed(model, GetParam());
    }
    [[nodiscard]] static PdfPage firstPage(const InvoiceRenderModel& model) {
        return printed(model).front();
    }
    [[nodiscard]] static double right() { return GetParam() == PaperSize::letter ? 564 : 547; }
    [[nodiscard]] static double bottom() { return GetParam() == PaperSize::letter ? 744 : 794; }
};

INSTANTIATE_TEST_SUITE_P(Paper, InvoicePageViewTest,
                         testing::Values(PaperSize::letter, PaperSize::a4),
                         [](const auto& row) { return std::string(rawValue(row.param)); });

TEST_P(InvoicePageViewTest, issuerStandsInTheUpperLeftCorner) {
    const PdfPage page = firstPage(plainInvoice(1));
    double top = margin;
    const auto expectLine = [&](const char* text, double size, double gap) {
        const Box box = page.place(text);
        EXPECT_NEAR(box.left, margin, tolerance) << text;
        EXPECT_NEAR(box.top, top, tolerance) << text;
        EXPECT_NEAR(box.height(), lineHeight(size), tolerance) << text;
        top += lineHeight(size) + gap;
    };
    expectLine("Ada Byron Design", 13, 2);
    expectLine("12 Analytical Row", 10, 0);
    expectLine("London", 10, 2);
    expectLine("ada@byron.test", 10, 2);
    expectLine("Tax ID: GB 123", 10, 0);
}

TEST_P(InvoicePageViewTest, emptyPartsOfTheIssuerTakeNoSpaceButTheNameDoes) {
    InvoiceRenderModel model = plainInvoice(1);
    model.business = {.name = "", .address = "", .email = "ada@byron.test", .taxID = ""};
    const PdfPage page = firstPage(model);
    EXPECT_NEAR(page.place("ada@byron.test").top, margin + lineHeight(13) + 2, tolerance);
    EXPECT_THAT(page.places("Tax ID:"), IsEmpty());
}

TEST_P(InvoicePageViewTest, invoiceColumnStandsInTheUpperRightCorner) {
    const PdfPage page = firstPage(plainInvoice(1));
    double top = margin;
    const auto expectLine = [&](const char* text, double size) {
        const Box box = page.place(text);
        EXPECT_NEAR(box.right, right(), tolerance) << text;
        EXPECT_NEAR(box.top, top, tolerance) << text;
        EXPECT_NEAR(box.height(), lineHeight(size), tolerance) << text;
        top += lineHeight(size) + 3;
    };
    expectLine("INVOICE", 22);
    expectLine("INV-2026-014", 11);
    expectLine("Issued Apr 1, 2026", 10);
    expectLine("Due Apr 15, 2026", 10);
}

TEST_P(InvoicePageViewTest, clientStands18PointsBelowTheTallerColumn) {
    InvoiceRenderModel model = plainInvoice(1);
    model.business.address = "12 Analytical Row\nMarylebone\nLondon";
    double top = margin + lineHeight(13) + 5 * lineHeight(10) + 3 * 2 + 18;
    EXPECT_NEAR(firstPage(model).place("BILL TO").top, top, tolerance);

    model.business = {.name = "Ada", .address = "", .email = "", .taxID = ""};
    top = margin + lineHeight(22) + lineHeight(11) + 2 * lineHeight(10) + 3 * 3 + 18;
    const PdfPage page = firstPage(model);
    const auto expectLine = [&](const char* text, double size, double gap) {
        const Box box = page.place(text);
        EXPECT_NEAR(box.left, margin, tolerance) << text;
        EXPECT_NEAR(box.top, top, tolerance) << text;
        EXPECT_NEAR(box.height(), lineHeight(size), tolerance) << text;
        top += lineHeight(size) + gap;
    };
    expectLine("BILL TO", 8, 2);
    expectLine("Northwind Traders", 11, 2);
    expectLine("400 Harbor Blvd", 10, 0);
    expectLine("Seattle", 10, 2);
    expectLine("pay@northwind.test", 10, 0);
}

TEST_P(InvoicePageViewTest, periodStands40PointsBesideTheClient) {
    const PdfPage page = firstPage(plainInvoice(1));
    const double left = page.place("Northwind Traders").right + 40;
    const Box label = page.place("PERIOD");
    const Box period = page.place("Mar 1, 2026 – Mar 31, 2026");
    EXPECT_NEAR(label.left, left, tolerance);
    EXPECT_NEAR(label.top, page.place("BILL TO").top, tolerance);
    EXPECT_NEAR(period.left, left, tolerance);
    EXPECT_NEAR(period.top, label.bottom + 2, tolerance);
}

TEST_P(InvoicePageViewTest, tableStands22PointsBelowTheHeader) {
    const PdfPage page = firstPage(plainInvoice(1));
    const double headTop = page.place("pay@northwind.test").bottom + 22;
    EXPECT_NEAR(page.place("DESCRIPTION").top, headTop + (rowHeight - lineHeight(8)) / 2,
                tolerance);
    // The two points of padding above a project's name move it down by one in the row's middle.
    EXPECT_NEAR(page.place("Website").top,
                headTop + rowHeight + 1 + (rowHeight - lineHeight(10)) / 2 + 1, tolerance);
}

TEST_P(InvoicePageViewTest, figuresStandUnderTheirHeadings) {
    InvoiceRenderModel model = plainInvoice(0);
    model.rows = {ProjectRow{"Website", "12.50", "$95.00", "$1,187.55"}};
    const PdfPage page = firstPage(model);
    // A heading's last letter has some of its spacing behind it.
    EXPECT_NEAR(page.place("HOURS").right, right() - hoursFromRight, 0.5);
    EXPECT_NEAR(page.place("RATE").right, right() - rateFromRight, 0.5);
    EXPECT_NEAR(page.place("AMOUNT").right, right(), 0.5);
    EXPECT_NEAR(page.place("DESCRIPTION").left, margin, tolerance);
    EXPECT_NEAR(page.place("12.50").right, right() - hoursFromRight, tolerance);
    EXPECT_NEAR(page.place("$95.00").right, right() - rateFromRight, tolerance);
    EXPECT_NEAR(page.place("$1,187.55").right, right(), tolerance);
    EXPECT_NEAR(page.place("Website").left, margin, tolerance);
}

TEST_P(InvoicePageViewTest, entriesAreIndentedAndTheirHoursStandUnderHours) {
    const PdfPage page = firstPage(plainInvoice(2));
    const Box date = page.place("Mar 2, 2026");
    EXPECT_NEAR(date.left, margin + 14, tolerance);
    EXPECT_NEAR(date.height(), lineHeight(9), tolerance);
    EXPECT_NEAR(page.place("Note1").left, margin + 14 + 80 + 8, tolerance);
    EXPECT_NEAR(page.place("1.25").right, right() - hoursFromRight, tolerance);
}

TEST_P(InvoicePageViewTest, rowsFollowEachOtherAt17Points) {
    const PdfPage page = firstPage(plainInvoice(12));
    const double first = page.place("Note1").top;
    for (int i = 2; i < 12; ++i) {
        EXPECT_NEAR(page.place("Note" + std::to_string(i)).top, first + (i - 1) * rowHeight,
                    tolerance);
    }
    const double rowTop = page.place("Website").top - (rowHeight - lineHeight(10)) / 2 - 1;
    EXPECT_NEAR(first, rowTop + rowHeight + (rowHeight - lineHeight(9)) / 2, tolerance);
}

TEST_P(InvoicePageViewTest, totalsStandAtTheRightBelowTheRows) {
    InvoiceRenderModel model = plainInvoice(1);
    model.rows.clear();
    model.taxLabel = "VAT (20%)";
    model.subtotal = "$1,000.00";
    model.tax = "$200.00";
    model.total = "$1,200.00";
    const PdfPage page = firstPage(model);
    const double tableBottom =
        page.place("DESCRIPTION").top - (rowHeight - lineHeight(8)) / 2 + rowHeight + 1;
    double top = tableBottom + 14 + 1 + 18;
    const double labelRight = page.place("$1,200.00").left - 24;
    const auto expectRow = [&](const char* label, const char* value, double size) {
        EXPECT_NEAR(page.place(label).top, top, tolerance) << label;
        EXPECT_NEAR(page.place(label).right, labelRight, tolerance) << label;
        EXPECT_NEAR(page.place(value).top, top, tolerance) << value;
        EXPECT_NEAR(page.place(value).right, right(), tolerance) << value;
        EXPECT_NEAR(page.place(value).height(), lineHeight(size), tolerance) << value;
        top += lineHeight(size) + 4;
    };
    expectRow("Subtotal", "$1,000.00", 10);
    expectRow("VAT (20%)", "$200.00", 10);
    expectRow("Total", "$1,200.00", 12);
}

TEST_P(InvoicePageViewTest, taxHasNoRowWithoutItsLabel) {
    const PdfPage page = firstPage(plainInvoice(1));
    EXPECT_THAT(page.places("$0.00"), IsEmpty());
    EXPECT_NEAR(page.place("Total").top, page.place("Subtotal").bottom + 4, tolerance);
}

TEST_P(InvoicePageViewTest, notesAndPaymentStandBelowTheTotals) {
    InvoiceRenderModel model = plainInvoice(1);
    model.notes = "Thanks\nagain";
    model.paymentInstructions = "By transfer";
    const PdfPage page = firstPage(model);
    double top = page.place("Total").bottom + 18;
    const auto expectLine = [&](const char* text, double size, double gap) {
        EXPECT_NEAR(page.place(text).left, margin, tolerance) << text;
        EXPECT_NEAR(page.place(text).top, top, tolerance) << text;
        EXPECT_NEAR(page.place(text).height(), lineHeight(size), tolerance) << text;
        top += lineHeight(size) + gap;
    };
    expectLine("NOTES", 8, 3);
    expectLine("Thanks", 10, 0);
    expectLine("again", 10, 18);
    expectLine("PAYMENT", 8, 3);
    expectLine("By transfer", 10, 0);
}

TEST_P(InvoicePageViewTest, emptyNotesAndPaymentHaveNoHeading) {
    const PdfPage page = firstPage(plainInvoice(1));
    EXPECT_THAT(page.places("NOTES"), IsEmpty());
    EXPECT_THAT(page.places("PAYMENT"), IsEmpty());
}

TEST_P(InvoicePageViewTest, footerStandsAtTheBottomOfEachPage) {
    const auto pages = printed(plainInvoice(56));
    ASSERT_THAT(pages, SizeIs(3));
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const Box footer = pages[i].place("Page " + std::to_string(i + 1) + " of 3");
        EXPECT_NEAR(footer.right, right(), tolerance);
        EXPECT_NEAR(footer.bottom, bottom(), tolerance);
        EXPECT_NEAR(footer.height(), lineHeight(8), tolerance);
    }
}

TEST_P(InvoicePageViewTest, headerIsOnTheFirstPageOnlyAndTheClosingOnTheLast) {
    const auto pages = printed(plainInvoice(23));
    ASSERT_THAT(pages, SizeIs(2));
    EXPECT_THAT(pages[0].places("INVOICE"), SizeIs(1));
    EXPECT_THAT(pages[0].places("Total"), IsEmpty());
    EXPECT_THAT(pages[1].places("INVOICE"), IsEmpty());
    EXPECT_THAT(pages[1].places("Total"), SizeIs(1));
    EXPECT_NEAR(pages[1].place("DESCRIPTION").top, margin + (rowHeight - lineHeight(8)) / 2,
                tolerance);
    EXPECT_NEAR(pages[1].place("Note22").top,
                margin + rowHeight + 1 + (rowHeight - lineHeight(9)) / 2, tolerance);
}

TEST_P(InvoicePageViewTest, pageOfTheTotalsAloneHasNoTable) {
    const auto pages = printed(plainInvoice(13));
    ASSERT_THAT(pages, SizeIs(2));
    EXPECT_THAT(pages[1].places("DESCRIPTION"), IsEmpty());
    EXPECT_NEAR(pages[1].place("Subtotal").top, margin + 14 + 1 + 18, tolerance);
}

TEST_P(InvoicePageViewTest, invoiceWithoutRowsHasAHeadRowAndTheClosing) {
    const auto pages = printed(plainInvoice(0));
    ASSERT_THAT(pages, SizeIs(1));
    for (const char* text : {"INVOICE", "DESCRIPTION", "Total", "Page 1 of 1"}) {
        EXPECT_THAT(pages[0].places(text), SizeIs(1)) << text;
    }
}

TEST_P(InvoicePageViewTest, longTextsPressTheFooterDown) {
    InvoiceRenderModel model = plainInvoice(0);
    model.notes = test::lines(14);
    model.paymentInstructions = test::lines(GetParam() == PaperSize::letter ? 34 : 38);
    const auto pages = printed(model);
    ASSERT_THAT(pages, SizeIs(2));
    const double textBottom = pages[1].places("line").back().bottom;
    EXPECT_GT(textBottom, bottom());
    EXPECT_NEAR(pages[1].place("Page 2 of 2").top, textBottom, tolerance);
}

}  // namespace
}  // namespace elmworth
