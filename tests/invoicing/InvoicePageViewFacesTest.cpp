// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <ostream>
#include <string>

#include "invoicing/InvoicePDFRenderer.h"
#include "support/Invoices.h"
#include "support/PdfText.h"
#include "support/Rows.h"
#include "support/TemporaryFolder.h"
#include "theme/fonts/Fonts.h"

namespace elmworth {
namespace {

using test::EntryRow;
using test::ProjectRow;
using test::rowName;

/// An invoice of which each text stands once and shows by its width in which face it is set.
InvoiceRenderModel tellingInvoice() {
    InvoiceRenderModel model;
    model.number = "INV-111";
    model.issueDate = "Jan 11";
    model.dueDate = "Jan 21";
    model.period = "Nov 1111";
    model.business = {"Studio 1111", "11 Mill Row", "a111@a.test", "GB 1111"};
    model.billTo = {"Client 11111", "1111 Harbor", "b111@b.test", ""};
    model.rows = {ProjectRow{"Project 1111", "1.11", "$11.11", "$111.11"},
                  EntryRow{"Nov 11, 1111", "Notes 1111", "11.11"}};
    model.subtotal = "$1,111.11";
    model.taxLabel = "VAT (11%)";
    model.tax = "$11,111.11";
    model.total = "$111,111.11";
    model.notes = "Remark 1111";
    model.paymentInstructions = "Account 1111";
    return model;
}

enum class Face { text, tabular, label };

struct FaceRow {
    const char* name;
    const char* text;
    Face face;
    double size;
    QFont::Weight weight = QFont::Normal;
    double letterSpacing = 0;
};

void PrintTo(const FaceRow& row, std::ostream* out) {
    *out << row.name;
}

double expectedWidth(const FaceRow& row) {
    constexpr int precise = 1'000;
    loadEmbeddedFonts();
    QFont font = row.face == Face::label     ? labelFont(precise)
                 : row.face == Face::tabular ? tabularFont(precise, row.weight)
                                             : textFont(precise, row.weight);
    font.setPixelSize(precise);
    const QString text = QString::fromUtf8(row.text);
    return QFontMetricsF(font).horizontalAdvance(text) * row.size / precise +
           static_cast<double>(text.size() - 1) * row.letterSpacing;
}

class InvoicePageViewFaces : public testing::TestWithParam<FaceRow> {};

TEST_P(InvoicePageViewFaces, textIsSetInItsFace) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "invoice.pdf";
    InvoicePDFRenderer::render(tellingInvoice(), PaperSize::letter, file);
    const auto box = test::pdfPages(file).front().place(GetParam().text);
    EXPECT_NEAR(box.width(), expectedWidth(GetParam()), 0.1);
}

INSTANTIATE_TEST_SUITE_P(
    Header, InvoicePageViewFaces,
    testing::Values(FaceRow{"IssuerName", "Studio 1111", Face::text, 13, QFont::DemiBold},
                    FaceRow{"IssuerAddress", "11 Mill Row", Face::text, 10},
                    FaceRow{"IssuerEmail", "a111@a.test", Face::text, 10},
                    FaceRow{"TaxID", "Tax ID: GB 1111", Face::text, 10},
                    FaceRow{"Heading", "INVOICE", Face::text, 22, QFont::Bold, 1.5},
                    FaceRow{"Number", "INV-111", Face::text, 11, QFont::Medium},
                    FaceRow{"IssueDate", "Issued Jan 11", Face::text, 10},
                    FaceRow{"DueDate", "Due Jan 21", Face::text, 10},
                    FaceRow{"BillTo", "BILL TO", Face::label, 8},
                    FaceRow{"ClientName", "Client 11111", Face::text, 11, QFont::DemiBold},
                    FaceRow{"ClientAddress", "1111 Harbor", Face::text, 10},
                    FaceRow{"ClientEmail", "b111@b.test", Face::text, 10},
                    FaceRow{"PeriodLabel", "PERIOD", Face::label, 8},
                    FaceRow{"Period", "Nov 1111", Face::text, 10}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Table, InvoicePageViewFaces,
                         testing::Values(FaceRow{"Description", "DESCRIPTION", Face::label, 8},
                                         FaceRow{"HoursLabel", "HOURS", Face::label, 8},
                                         FaceRow{"RateLabel", "RATE", Face::label, 8},
                                         FaceRow{"AmountLabel", "AMOUNT", Face::label, 8},
                                         FaceRow{"ProjectName", "Project 1111", Face::tabular, 10,
                                                 QFont::DemiBold},
                                         FaceRow{"ProjectHours", "1.11", Face::tabular, 10},
                                         FaceRow{"ProjectRate", "$11.11", Face::tabular, 10},
                                         FaceRow{"ProjectAmount", "$111.11", Face::tabular, 10},
                                         FaceRow{"EntryDate", "Nov 11, 1111", Face::tabular, 9},
                                         FaceRow{"EntryNotes", "Notes 1111", Face::tabular, 9},
                                         FaceRow{"EntryHours", "11.11", Face::tabular, 9}),
                         rowName);

INSTANTIATE_TEST_SUITE_P(
    Closing, InvoicePageViewFaces,
    testing::Values(FaceRow{"SubtotalLabel", "Subtotal", Face::tabular, 10},
                    FaceRow{"Subtotal", "$1,111.11", Face::tabular, 10},
                    FaceRow{"TaxLabel", "VAT (11%)", Face::tabular, 10},
                    FaceRow{"Tax", "$11,111.11", Face::tabular, 10},
                    FaceRow{"TotalLabel", "Total", Face::tabular, 12, QFont::Bold},
                    FaceRow{"Total", "$111,111.11", Face::tabular, 12, QFont::Bold},
                    FaceRow{"NotesLabel", "NOTES", Face::label, 8},
                    FaceRow{"Notes", "Remark 1111", Face::text, 10},
                    FaceRow{"PaymentLabel", "PAYMENT", Face::label, 8},
                    FaceRow{"Payment", "Account 1111", Face::text, 10},
                    FaceRow{"Footer", "Page 1 of 1", Face::text, 8}),
    rowName);

}  // namespace
}  // namespace elmworth
