// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What does not fit into its width on an invoice's page.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "invoicing/InvoicePDFRenderer.h"
#include "support/Invoices.h"
#include "support/PdfText.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

using test::Box;
using test::EntryRow;
using test::PdfPage;
using test::plainInvoice;
using test::ProjectRow;
using testing::IsEmpty;
using testing::Not;

constexpr double tolerance = 0.1;
constexpr double margin = 48;
constexpr double right = 595 - 48;
constexpr double rowHeight = 17;

/// The height of a line of our font.
constexpr double lineHeight(double size) {
    return size * (2728 + 680) / 2816;
}

PdfPage firstPage(const InvoiceRenderModel& model) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "invoice.pdf";
    InvoicePDFRenderer::render(model, PaperSize::a4, file);
    return test::pdfPages(file).front();
}

constexpr const char* longName =
    "Kontor für angewandte Rechenkunst und mechanische Webstühle Byron, Lovelace und Töchter "
    "Gesellschaft mit beschränkter Haftung und Compagnie Kommanditgesellschaft";

/// Expects every word of `text` on the page, and nothing left out for an ellipsis.
void expectWhole(const PdfPage& page, const std::string& text) {
    std::istringstream words(text);
    for (std::string word; words >> word;) EXPECT_THAT(page.places(word), Not(IsEmpty())) << word;
    for (const auto& word : page.words) {
        EXPECT_EQ(word.text.find("…"), std::string::npos) << word.text;
    }
}

struct Wrapped {
    const char* name;
    const char* last;   ///< the last word of what is wrapped
    const char* below;  ///< what stands below it
    double gap;
    void (*lengthen)(InvoiceRenderModel& model);
};

class WrappedText : public testing::TestWithParam<Wrapped> {};

TEST_P(WrappedText, isWholeAndMovesWhatStandsBelow) {
    const auto& row = GetParam();
    InvoiceRenderModel model = plainInvoice(1);
    row.lengthen(model);
    const PdfPage page = firstPage(model);
    expectWhole(page, longName);
    EXPECT_NEAR(page.place(row.below).top, page.place(row.last).bottom + row.gap, tolerance);
}

INSTANTIATE_TEST_SUITE_P(
    InvoicePageView, WrappedText,
    testing::Values(Wrapped{"nameOfTheIssuer", "Kommanditgesellschaft", "12 Analytical Row", 2,
                            [](auto& model) { model.business.name = longName; }},
                    Wrapped{"emailOfTheIssuer", "Kommanditgesellschaft", "Tax ID: GB 123", 2,
                            [](auto& model) { model.business.email = longName; }},
                    Wrapped{"taxIDOfTheIssuer", "Kommanditgesellschaft", "BILL TO", 18,
                            [](auto& model) { model.business.taxID = longName; }},
                    Wrapped{"number", "Kommanditgesellschaft", "Issued Apr 1, 2026", 3,
                            [](auto& model) { model.number = longName; }},
                    Wrapped{"dueDate", "Kommanditgesellschaft", "BILL TO", 18,
                            [](auto& model) {
                                model.business = {};
                                model.dueDate = longName;
                            }},
                    Wrapped{"nameOfTheClient", "Kommanditgesellschaft", "400 Harbor Blvd", 2,
                            [](auto& model) { model.billTo.name = longName; }},
                    Wrapped{"emailOfTheClient", "Kommanditgesellschaft", "DESCRIPTION",
                            22 + (rowHeight - lineHeight(8)) / 2,
                            [](auto& model) { model.billTo.email = longName; }},
                    Wrapped{"labelOfTheTax", "Kommanditgesellschaft", "Total", 4,
                            [](auto& model) { model.taxLabel = longName; }}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(InvoicePageView, wrappedLinesOfARightAlignedColumnEndAtItsEdge) {
    InvoiceRenderModel model = plainInvoice(1);
    model.number = longName;
    const PdfPage page = firstPage(model);
    int edges = 0;
    for (const auto& word : page.words) {
        const bool isOfTheNumber = word.box.top > page.place("INVOICE").bottom &&
                                   word.box.bottom < page.place("Issued").top &&
                                   word.box.left > page.place("London").right;
        if (isOfTheNumber && std::abs(word.box.right - right) < tolerance) ++edges;
    }
    EXPECT_GE(edges, 3);
}

TEST(InvoicePageView, onlyTheNamesAndNotesOfRowsAreCutToOneLine) {
    InvoiceRenderModel model = plainInvoice(0);
    model.rows = {ProjectRow{longName, "1.00", "$95.00", "$95.00"},
                  EntryRow{"Mar 2, 2026", longName, "1.00"}};
    const PdfPage page = firstPage(model);
    EXPECT_THAT(page.places("Kommanditgesellschaft"), IsEmpty());
    const auto isCut = [](const auto& word) { return word.text.ends_with("…"); };
    EXPECT_EQ(std::count_if(page.words.begin(), page.words.end(), isCut), 2);
    EXPECT_NEAR(page.place("Mar 2, 2026").top - page.places("Kontor").front().top,
                rowHeight + (lineHeight(10) - lineHeight(9)) / 2 - 1, tolerance);
}

TEST(InvoicePageView, aLongDateOfAnEntryIsMadeSmallerButKeepsItsEnd) {
    InvoiceRenderModel model = plainInvoice(0);
    model.rows = {EntryRow{"31 de diciembre de 2026 d. C.", "Note", "1.00"}};
    const PdfPage page = firstPage(model);
    const Box date = page.place("31 de diciembre de 2026 d. C.");
    EXPECT_NEAR(date.width(), 80, 0.5);
    EXPECT_NEAR(page.place("Note").left, margin + 14 + 80 + 8, tolerance);
}

}  // namespace
}  // namespace elmworth
