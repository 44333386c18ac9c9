// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoicePages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <ostream>
#include <random>
#include <string>

#include "support/Invoices.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::lines;
using test::plainInvoice;
using test::rowName;
using testing::ElementsAre;

std::vector<int> rowCounts(const InvoiceRenderModel& model) {
    std::vector<int> counts;
    for (const InvoicePage& page : pages(model))
        counts.push_back(static_cast<int>(page.rows.size()));
    return counts;
}

LogoImage logo() {
    return std::make_shared<const QImage>(1, 1, QImage::Format_ARGB32);
}

std::string repeated(const char* text, int times) {
    std::string result;
    while (times-- > 0) result += text;
    return result;
}

struct WrapRow {
    const char* name;
    std::string text;
    std::size_t lines;  // at ten characters a line
};

void PrintTo(const WrapRow& row, std::ostream* out) {
    *out << row.name;
}

class WrappedLines : public testing::TestWithParam<WrapRow> {};

TEST_P(WrappedLines, areCounted) {
    EXPECT_EQ(wrappedLineCount(GetParam().text, 10), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(
    WrappedLineCount, WrappedLines,
    testing::Values(WrapRow{"EmptyTextTakesNone", "", 0}, WrapRow{"ShortTextTakesOne", "a", 1},
                    WrapRow{"FullLineTakesOne", "0123456789", 1},
                    WrapRow{"OneMoreTakesTwo", "0123456789a", 2},
                    WrapRow{"TwoFullLines", "01234567890123456789", 2},
                    WrapRow{"LineFeedAloneIsTwoPieces", "\n", 2},
                    WrapRow{"EmptyPiecesCount", "a\n\nb\n", 4},
                    WrapRow{"PiecesWrapOnTheirOwn", "0123456789a\n0123456789a", 4},
                    WrapRow{"LettersOfSeveralBytesCountOnce", "ääääääääää", 1},
                    WrapRow{"CombinedLettersCountOnce", repeated("e\u0301", 10), 1},
                    WrapRow{"EmojiSequencesCountOnce", repeated("👩‍🚀", 10), 1}),
    rowName);

struct DealRow {
    const char* name;
    int rows;
    int businessAddressLines;
    int clientAddressLines;
    bool hasLogo;
    int paymentLines;
    int notesLines;
    std::vector<int> expected;  // rows of each page
};

void PrintTo(const DealRow& row, std::ostream* out) {
    *out << row.name;
}

class DealtOut : public testing::TestWithParam<DealRow> {};

TEST_P(DealtOut, rowsFillThePages) {
    const DealRow& row = GetParam();
    InvoiceRenderModel model = plainInvoice(row.rows);
    model.business.address = lines(row.businessAddressLines);
    model.billTo.address = lines(row.clientAddressLines);
    model.paymentInstructions = lines(row.paymentLines);
    model.notes = lines(row.notesLines);
    if (row.hasLogo) model.logo = logo();
    EXPECT_EQ(rowCounts(model), row.expected);
}

constexpr bool withLogo = true;

INSTANTIATE_TEST_SUITE_P(
    Plain, DealtOut,
    testing::Values(DealRow{"NoRowsIsOnePage", 0, 2, 2, false, 0, 0, {0}},
                    DealRow{"OnePageHolds12", 12, 2, 2, false, 0, 0, {12}},
                    DealRow{"The13thMovesTheClosing", 13, 2, 2, false, 0, 0, {13, 0}},
                    DealRow{"FirstPageHolds22", 22, 2, 2, false, 0, 0, {22, 0}},
                    DealRow{"The23rdGoesToPage2", 23, 2, 2, false, 0, 0, {22, 1}},
                    DealRow{"LastPageHolds26", 48, 2, 2, false, 0, 0, {22, 26}},
                    DealRow{"The27thMovesTheClosing", 49, 2, 2, false, 0, 0, {22, 27, 0}},
                    DealRow{"LaterPageHolds34", 56, 2, 2, false, 0, 0, {22, 34, 0}},
                    DealRow{"The35thGoesToPage3", 57, 2, 2, false, 0, 0, {22, 34, 1}},
                    DealRow{"EachLaterPageHolds34", 124, 2, 2, false, 0, 0, {22, 34, 34, 34, 0}}),
    rowName);

// Lines are 13 points and rows 17: ceil(1 * 13 / 17) = 1, ceil(4 * 13 / 17) = 4,
// ceil(5 * 13 / 17) = 4.
INSTANTIATE_TEST_SUITE_P(
    HeaderSpace, DealtOut,
    testing::Values(DealRow{"ThirdAddressLineCostsARow", 11, 3, 1, false, 0, 0, {11}},
                    DealRow{"ThirdAddressLineMovesThe12th", 12, 3, 1, false, 0, 0, {12, 0}},
                    DealRow{"TheLongerAddressCounts", 12, 1, 3, false, 0, 0, {12, 0}},
                    DealRow{"LogoLeaves8OnOnePage", 8, 2, 2, withLogo, 0, 0, {8}},
                    DealRow{"LogoMovesThe9th", 9, 2, 2, withLogo, 0, 0, {9, 0}},
                    DealRow{"LogoLeaves18OnTheFirst", 19, 2, 2, withLogo, 0, 0, {18, 1}},
                    DealRow{"LogoAndThirdLineCostFourRows", 19, 3, 2, withLogo, 0, 0, {18, 1}},
                    DealRow{"HeaderCostsNothingLater", 44, 2, 2, withLogo, 0, 0, {18, 26}},
                    DealRow{"FirstPageKeeps4Rows", 5, 60, 2, false, 0, 0, {4, 1}},
                    DealRow{"FourRowsUnderAHugeHeader", 4, 60, 2, false, 0, 0, {4, 0}}),
    rowName);

INSTANTIATE_TEST_SUITE_P(
    FooterSpace, DealtOut,
    testing::Values(DealRow{"TwoPaymentLinesAreFree", 12, 2, 2, false, 2, 0, {12}},
                    DealRow{"ThirdPaymentLineCostsARow", 12, 2, 2, false, 3, 0, {12, 0}},
                    DealRow{"OneLineOfNotesCosts3Rows", 9, 2, 2, false, 0, 1, {9}},
                    DealRow{"OneLineOfNotesMovesThe10th", 10, 2, 2, false, 0, 1, {10, 0}},
                    DealRow{"PaymentAndNotesAddUpAsLines", 8, 2, 2, false, 4, 1, {8}},
                    DealRow{"PaymentAndNotesMoveThe9th", 9, 2, 2, false, 4, 1, {9, 0}},
                    DealRow{"NotesCostOnTheLastPageToo", 45, 2, 2, false, 0, 1, {22, 23}},
                    DealRow{"NotesMoveTheClosingOfTheLast", 46, 2, 2, false, 0, 1, {22, 24, 0}},
                    DealRow{"LimitOfZeroMovesTheClosing", 1, 2, 2, false, 0, 13, {1, 0}},
                    DealRow{"LimitOfZeroKeepsAnEmptyChunk", 0, 2, 2, false, 0, 13, {0}},
                    DealRow{"NegativeLimitMovesOffAnEmptyChunk", 0, 2, 2, false, 0, 14, {0, 0}},
                    DealRow{"FooterNeverTakesRowsOff", 30, 2, 2, false, 0, 90, {22, 8, 0}}),
    rowName);

TEST(InvoicePages, addressesWrapAt45Characters) {
    InvoiceRenderModel model = plainInvoice(12);
    model.business.address = std::string(90, 'x');
    EXPECT_THAT(rowCounts(model), ElementsAre(12));
    model.business.address += 'x';
    EXPECT_THAT(rowCounts(model), ElementsAre(12, 0));
}

TEST(InvoicePages, notesAndPaymentWrapAt90Characters) {
    InvoiceRenderModel model = plainInvoice(12);
    model.paymentInstructions = std::string(180, 'x');
    EXPECT_THAT(rowCounts(model), ElementsAre(12));
    model.paymentInstructions += 'x';
    EXPECT_THAT(rowCounts(model), ElementsAre(12, 0));

    model = plainInvoice(9);
    model.notes = std::string(90, 'x');
    EXPECT_THAT(rowCounts(model), ElementsAre(9));
    model.notes += 'x';
    EXPECT_THAT(rowCounts(model), ElementsAre(9, 0));
}

TEST(InvoicePages, knowTheirPlaceAndTheCount) {
    const auto dealt = pages(plainInvoice(56));
    ASSERT_EQ(dealt.size(), 3U);
    for (std::size_t i = 0; i < dealt.size(); ++i) {
        EXPECT_EQ(dealt[i].index, static_cast<int>(i));
        EXPECT_EQ(dealt[i].count, 3);
    }
}

TEST(InvoicePages, compareMemberByMember) {
    const InvoicePage page{.index = 1, .count = 2, .rows = test::invoiceRows(2)};
    InvoicePage other = page;
    EXPECT_EQ(page, other);
    other.count = 3;
    EXPECT_NE(page, other);
    other = page;
    std::get<test::EntryRow>(other.rows[1]).hours = "2.00";
    EXPECT_NE(page, other);
}

TEST(InvoicePages, keepAllRowsInOrderWhateverTheTexts) {
    std::mt19937 random(20260301);
    const auto upTo = [&](int most) { return std::uniform_int_distribution(0, most)(random); };
    for (int round = 0; round < 500; ++round) {
        InvoiceRenderModel model = plainInvoice(upTo(150));
        model.business.address = lines(upTo(30));
        model.paymentInstructions = lines(upTo(40));
        model.notes = lines(upTo(40));
        if (upTo(1) == 1) model.logo = logo();
        const auto dealt = pages(model);
        std::vector<InvoiceRenderModel::Row> joined;
        for (const InvoicePage& page : dealt) {
            EXPECT_EQ(page.count, static_cast<int>(dealt.size()));
            EXPECT_LE(page.rows.size(), page.index == 0 ? 22U : 34U);
            // Only the last page may be without rows, apart from the first of an empty invoice.
            EXPECT_TRUE(!page.rows.empty() || page.index == page.count - 1 || model.rows.empty());
            joined.insert(joined.end(), page.rows.begin(), page.rows.end());
        }
        ASSERT_EQ(joined, model.rows);
    }
}

}  // namespace
}  // namespace elmworth
