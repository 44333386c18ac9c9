// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoicePDFRenderer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <string>

#include "platform/AtomicFile.h"
#include "support/FileSizeLimit.h"
#include "support/Invoices.h"
#include "support/PdfText.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

using test::EntryRow;
using test::plainInvoice;
using test::ProjectRow;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class InvoicePDFRendererTest : public testing::Test {
 protected:
    void render(const InvoiceRenderModel& model, PaperSize paper = PaperSize::letter) const {
        InvoicePDFRenderer::render(model, paper, file_);
    }
    [[nodiscard]] std::string plainText(const InvoiceRenderModel& model) const {
        render(model);
        return test::pdfPlainText(file_);
    }

    test::TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "invoice.pdf";
};

TEST_F(InvoicePDFRendererTest, pagesHaveThePapersSize) {
    render(plainInvoice(13), PaperSize::letter);
    for (const auto& page : test::pdfPages(file_)) {
        EXPECT_EQ(page.width, 612);
        EXPECT_EQ(page.height, 792);
    }
    render(plainInvoice(13), PaperSize::a4);
    for (const auto& page : test::pdfPages(file_)) {
        EXPECT_EQ(page.width, 595);
        EXPECT_EQ(page.height, 842);
    }
}

TEST_F(InvoicePDFRendererTest, fileTellsTitleAuthorAndCreator) {
    render(plainInvoice(1));
    EXPECT_EQ(test::pdfInfo(file_, "Title"), "Invoice INV-2026-014");
    EXPECT_EQ(test::pdfInfo(file_, "Author"), "Ada Byron Design");
    EXPECT_EQ(test::pdfInfo(file_, "Creator"), "Elmworth");
    EXPECT_THAT(test::pdfInfo(file_, "CreationDate"), Not(IsEmpty()));
}

TEST_F(InvoicePDFRendererTest, titleAndAuthorHoldAnyLetters) {
    InvoiceRenderModel model = plainInvoice(1);
    model.number = "(a) 2026/14 \\ 請求書 ഊ";
    model.business.name = "株式会社 (デザイン) 🚀";
    render(model);
    EXPECT_EQ(test::pdfInfo(file_, "Title"), "Invoice (a) 2026/14 \\ 請求書 ഊ");
    EXPECT_EQ(test::pdfInfo(file_, "Author"), "株式会社 (デザイン) 🚀");
}

TEST_F(InvoicePDFRendererTest, fontsAreEmbeddedInPartWithTheirCharacters) {
    render(plainInvoice(5));
    const auto fonts = test::pdfFonts(file_);
    EXPECT_THAT(fonts, Not(IsEmpty()));
    for (const std::string& font : fonts) {
        EXPECT_THAT(font, HasSubstr("ElmworthInter"));
        EXPECT_THAT(font, HasSubstr("CID TrueType"));
        EXPECT_TRUE(font.find(" yes no  yes") != font.npos ||
                    font.find(" yes yes yes") != font.npos)
            << font;
    }
    // A whole font alone takes more.
    EXPECT_LT(std::filesystem::file_size(file_), 100'000U);
}

TEST_F(InvoicePDFRendererTest, textStaysTextAndNotAnImage) {
    render(plainInvoice(30));
    EXPECT_THAT(test::pdfImages(file_), IsEmpty());
    EXPECT_THAT(test::pdfPlainText(file_), HasSubstr("DESCRIPTION HOURS RATE AMOUNT"));
}

TEST_F(InvoicePDFRendererTest, logoIsEmbeddedWithoutLoss) {
    InvoiceRenderModel model = plainInvoice(1);
    QImage logo(300, 100, QImage::Format_RGB32);
    logo.fill(Qt::red);
    model.logo = std::make_shared<const QImage>(logo);
    render(model);
    const auto images = test::pdfImages(file_);
    ASSERT_THAT(images, SizeIs(1));
    EXPECT_THAT(images.front(), HasSubstr(" 300   100 "));
    EXPECT_THAT(images.front(), Not(HasSubstr("jpeg")));
}

TEST_F(InvoicePDFRendererTest, textsAreNeverTakenForMarkup) {
    InvoiceRenderModel model = plainInvoice(0);
    model.business.name = "<b>x</b> &amp; &lt;";
    model.rows = {ProjectRow{"<i>y</i> &#65;", "1.00", "$1.00", "$1.00"},
                  EntryRow{"Mar 1, 2026", "<a href='z'>link</a> & co", "1.00"}};
    model.notes = "<br>\n<p>para</p>";
    const std::string text = plainText(model);
    EXPECT_THAT(text, HasSubstr("<b>x</b> &amp; &lt;"));
    EXPECT_THAT(text, HasSubstr("<i>y</i> &#65;"));
    EXPECT_THAT(text, HasSubstr("<a href='z'>link</a> & co"));
    EXPECT_THAT(text, HasSubstr("<br>\n<p>para</p>"));
}

TEST_F(InvoicePDFRendererTest, textsAreReadAsTheyWereWritten) {
    InvoiceRenderModel model = plainInvoice(0);
    model.number = "2026/14";
    model.notes =
        "At 10:30 (a-b) -> 12x34 <= 5\nÄrger, œuvre, žluť, Ελληνικά, Русский\n€ £ ¥ ₹ – — … “x” ·";
    model.taxLabel = "VAT (8.25%)";
    const std::string text = plainText(model);
    EXPECT_THAT(text, HasSubstr("2026/14"));
    EXPECT_THAT(text, HasSubstr(model.notes));
    EXPECT_THAT(text, HasSubstr("VAT (8.25%)"));
}

TEST_F(InvoicePDFRendererTest, namesInOtherScriptsAreDrawn) {
    InvoiceRenderModel model = plainInvoice(0);
    model.business.name = "株式会社デザイン工房";
    model.billTo.name = "עברית";
    model.rows = {ProjectRow{"नया", "1.00", "$1.00", "$1.00"}};
    const std::string text = plainText(model);
    EXPECT_THAT(text, HasSubstr("株式会社デザイン工房"));
    for (const char* letter : {"ע", "ב", "ר", "י", "ת"}) EXPECT_THAT(text, HasSubstr(letter));
    EXPECT_THAT(text, HasSubstr("नया"));
}

TEST_F(InvoicePDFRendererTest, emojiAreDrawnByAFontThatHasThem) {
    InvoiceRenderModel model = plainInvoice(0);
    model.business.name = "Studio 🎨";
    EXPECT_THAT(plainText(model), HasSubstr("Studio"));
    EXPECT_THAT(test::pdfFonts(file_), testing::Contains(HasSubstr("Symbola")));
}

TEST_F(InvoicePDFRendererTest, emptyNotesOfAnEntryAreADashAndLineFeedsBlanks) {
    InvoiceRenderModel model = plainInvoice(0);
    model.rows = {EntryRow{"Mar 1, 2026", "", "1.25"}, EntryRow{"Mar 2, 2026", "a\nb\n", "2.50"}};
    const std::string text = plainText(model);
    EXPECT_THAT(text, HasSubstr("Mar 1, 2026 — 1.25"));
    EXPECT_THAT(text, HasSubstr("Mar 2, 2026 a b 2.50"));
}

TEST_F(InvoicePDFRendererTest, longTextsEndBeforeTheNextColumnAndThoseOfRowsWithAnEllipsis) {
    std::string name;
    while (name.size() < 100) name += "longname";
    InvoiceRenderModel model = plainInvoice(0);
    model.number = model.period = model.business.name = model.billTo.name = name;
    model.business.email = model.billTo.email = name;
    model.taxLabel = name;
    model.rows = {ProjectRow{name, "1.25", "$95.00", "$118.75"},
                  EntryRow{"Wednesday, September 30, 2026", name, "1.25"}};
    render(model);
    const auto page = test::pdfPages(file_).front();
    int cut = 0;
    for (const auto& word : page.words) {
        EXPECT_LE(word.box.right, 564.5) << word.text;
        if (word.text.ends_with("…")) ++cut;
    }
    EXPECT_EQ(cut, 2);
    const auto hours = page.places("1.25");
    ASSERT_THAT(hours, SizeIs(2));
    for (const auto& word : page.words) {
        const bool inTable = word.box.top > hours[0].top - 2 && word.box.top < hours[1].bottom;
        if (inTable && word.text.ends_with("…")) {
            EXPECT_LE(word.box.right, 564 - 186 - 50 - 8 + 0.1) << word.text;
        }
    }
}

TEST_F(InvoicePDFRendererTest, figuresAreNeverCut) {
    InvoiceRenderModel model = plainInvoice(0);
    constexpr const char* largest = "$92,233,720,368,547,758.07";
    model.rows = {ProjectRow{"Website", "2562047788015.22", largest, largest}};
    model.subtotal = model.total = largest;
    render(model);
    const auto page = test::pdfPages(file_).front();
    EXPECT_THAT(page.places("2562047788015.22"), SizeIs(1));
    const auto places = page.places(largest);
    EXPECT_THAT(places, SizeIs(4));
    for (const auto& place : places) EXPECT_LE(place.right, 564.1);
    EXPECT_NEAR(page.place("2562047788015.22").right, 378, 0.1);
}

TEST_F(InvoicePDFRendererTest, addressesWrapBesideTheInvoiceColumn) {
    InvoiceRenderModel model = plainInvoice(0);
    model.business.address = std::string(200, 'm');
    render(model);
    const auto page = test::pdfPages(file_).front();
    const double left = page.place("INV-2026-014").left;
    for (const auto& word : page.words) {
        if (word.text.starts_with("mm")) {
            EXPECT_LT(word.box.right, left);
        }
    }
}

TEST_F(InvoicePDFRendererTest, replacesAFileThatStandsThere) {
    writeAtomically(file_, "old");
    render(plainInvoice(1));
    EXPECT_EQ(test::pdfPages(file_).size(), 1U);
    EXPECT_THAT(folder_.names(), ElementsAre("invoice.pdf"));
}

TEST_F(InvoicePDFRendererTest, failureLeavesWhatStoodThere) {
    writeAtomically(file_, "old");
    {
        const test::FileSizeLimit disk(1'000);
        EXPECT_THROW(render(plainInvoice(1)), RenderError);
    }
    EXPECT_EQ(readFile(file_), "old");
    EXPECT_THAT(folder_.names(), ElementsAre("invoice.pdf"));
}

TEST_F(InvoicePDFRendererTest, folderThatIsNotThereIsAnErrorWithASentence) {
    try {
        InvoicePDFRenderer::render(plainInvoice(1), PaperSize::a4, folder_.path() / "no" / "x.pdf");
        FAIL();
    } catch (const RenderError& error) {
        EXPECT_EQ(error.code(), RenderError::Code::cannotCreateContext);
        EXPECT_STREQ(error.what(), "Could not create the PDF file.");
    }
}

}  // namespace
}  // namespace elmworth
