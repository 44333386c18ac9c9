// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/PageText.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QRectF>
#include <algorithm>
#include <string>

namespace elmworth {
namespace {

using Face = TextStyle::Face;

constexpr double tolerance = 0.1;
constexpr double wide = 500;

double widthOf(std::string_view text, const TextStyle& style) {
    return PageText::line(text, style, wide).width();
}

/// The rectangle in points that the text blackens; it is painted at (20, 0).
QRectF inkOf(const PageText& text) {
    constexpr int scale = 8;
    QImage image(200 * scale, 20 * scale, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    text.paint(painter, {20, 0});
    painter.end();
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).red() < 128) ink |= QRect(x, y, 1, 1);
        }
    }
    return {QPointF(ink.topLeft()) / scale, QSizeF(ink.size()) / scale};
}

TEST(PageText, lineThatFitsIsNotCut) {
    const double natural = widthOf("Website redesign", {});
    const PageText exact = PageText::line("Website redesign", {}, natural + 0.01);
    EXPECT_NEAR(exact.width(), natural, tolerance);
}

TEST(PageText, lineThatDoesNotFitIsCutToItsWidth) {
    const std::string text(400, 'm');
    const PageText cut = PageText::line(text, {}, 100);
    EXPECT_LE(cut.width(), 100);
    EXPECT_GT(cut.width(), 80);
    EXPECT_NEAR(cut.height(), TextStyle{}.lineHeight(), tolerance);
}

TEST(PageText, lineTakesLineFeedsAndTabsForBlanks) {
    EXPECT_NEAR(widthOf("a\nb\tc", {}), widthOf("a b c", {}), tolerance);
    EXPECT_NEAR(PageText::line("a\nb", {}, wide).height(), TextStyle{}.lineHeight(), tolerance);
}

TEST(PageText, figureIsMadeSmallerButKeepsItsEndAndItsLine) {
    constexpr const char* amount = "$92,233,720,368,547,758.07";
    const PageText figure = PageText::figure(amount, {}, 90);
    EXPECT_LE(figure.width(), 90);
    EXPECT_GT(figure.width(), 87);
    EXPECT_NEAR(figure.height(), TextStyle{}.lineHeight(), tolerance);
}

TEST(PageText, paragraphsWrapAtTheirWidthAndAtLineFeeds) {
    const double height = TextStyle{}.lineHeight();
    const auto lineCount = [&](std::string_view text, double width) {
        return PageText::paragraphs(text, {}, width).height() / height;
    };
    EXPECT_NEAR(lineCount("one", wide), 1, 0.01);
    EXPECT_NEAR(lineCount("one\ntwo", wide), 2, 0.01);
    EXPECT_NEAR(lineCount("one\r\ntwo", wide), 2, 0.01);
    EXPECT_NEAR(lineCount("one\n\ntwo\n", wide), 4, 0.01);
    EXPECT_NEAR(lineCount("one two", widthOf("one", {}) + 5), 2, 0.01);
    EXPECT_NEAR(lineCount("unbreakable", widthOf("unbreak", {}) + 1), 2, 0.01);
    EXPECT_LE(PageText::paragraphs(std::string(500, 'x'), {}, 100).width(), 100);
}

TEST(PageText, emptyTextTakesNoSpace) {
    EXPECT_EQ(PageText::line("", {}, wide).height(), 0);
    EXPECT_EQ(PageText::figure("", {}, wide).height(), 0);
    EXPECT_EQ(PageText::paragraphs("", {}, wide).height(), 0);
    EXPECT_EQ(PageText::paragraphs("", {}, wide).width(), 0);
}

TEST(PageText, linesOfOtherScriptsAreAsHigh) {
    for (const char* text : {"株式会社", "شركة", "नमस्ते", "👩‍🚀", "ไทย"}) {
        EXPECT_NEAR(PageText::line(text, {}, wide).height(), TextStyle{}.lineHeight(), tolerance)
            << text;
    }
}

TEST(PageText, smallerFiguresStandOnTheSameBaseline) {
    const double baseline = inkOf(PageText::line("1111", {}, wide)).bottom();
    EXPECT_NEAR(inkOf(PageText::figure("1111111111", {}, 30)).bottom(), baseline, 0.2);
}

TEST(PageText, lettersOfOtherFontsStandOnTheSameBaseline) {
    const double baseline = inkOf(PageText::line("H", {}, wide)).bottom();
    for (const char* text : {"HΗא", "Hあ", "Hก"}) {
        EXPECT_NEAR(inkOf(PageText::line(text, {}, wide)).bottom(), baseline, 1) << text;
    }
}

TEST(PageText, textFromRightToLeftStartsAtTheLeftEdge) {
    for (const PageText& text :
         {PageText::line("שלום", {}, wide), PageText::paragraphs("שלום", {}, wide)}) {
        const QRectF ink = inkOf(text);
        EXPECT_NEAR(ink.left(), 20.5, 1);
        EXPECT_LE(ink.right(), 20 + text.width());
    }
}

TEST(PageText, digitsOfTheTabularFaceHaveOneWidth) {
    for (const auto weight : {QFont::Normal, QFont::Medium, QFont::DemiBold, QFont::Bold}) {
        const TextStyle style{.face = Face::tabular, .weight = weight};
        const double width = widthOf("0,000.00", style);
        for (const char digit : std::string("123456789")) {
            std::string text = "0,000.00";
            std::replace(text.begin(), text.end(), '0', digit);
            EXPECT_NEAR(widthOf(text, style), width, 0.01) << text;
        }
    }
    EXPECT_LT(widthOf("111.11", {}), widthOf("888.88", {}) - 5);
}

TEST(PageText, weightsDiffer) {
    double previous = 0;
    for (const auto weight : {QFont::Normal, QFont::Medium, QFont::DemiBold, QFont::Bold}) {
        const double width = widthOf("Northwind Traders", {.weight = weight});
        EXPECT_GT(width, previous + 0.3);
        previous = width;
    }
}

TEST(PageText, letterSpacingStandsBetweenLettersOnly) {
    EXPECT_NEAR(widthOf("INVOICE", {.letterSpacing = 1.5}), widthOf("INVOICE", {}) + 6 * 1.5,
                tolerance);
}

TEST(PageText, lettersOfLabelsStandATenthOfTheirSizeApart) {
    const TextStyle semibold{.size = 8, .weight = QFont::DemiBold};
    const TextStyle label{.face = Face::label, .size = 8};
    EXPECT_NEAR(widthOf("AMOUNT", label), widthOf("AMOUNT", semibold) + 5.5 * 0.8, tolerance);
}

TEST(PageText, absurdlyLongTextsAreNotLaidOutWhole) {
    const std::string feeds(1'000'000, '\n');
    EXPECT_LT(PageText::paragraphs(feeds, {}, wide).height(), 1'100);
    const PageText line = PageText::line(std::string(10'000'000, 'i'), {}, wide);
    EXPECT_LE(line.width(), wide);
}

TEST(PageText, bytesThatAreNoTextAreShownAsReplacements) {
    EXPECT_GT(widthOf("a\xff"
                      "b",
                      {}),
              widthOf("ab", {}));
}

TEST(TextStack, addsHeightsAndSpacing) {
    TextStack stack(3);
    EXPECT_EQ(stack.height(), 0);
    stack.add(PageText::line("one", {}, wide));
    EXPECT_NEAR(stack.height(), TextStyle{}.lineHeight(), tolerance);
    stack.add(PageText::line("a longer one", {.size = 12}, wide));
    EXPECT_NEAR(stack.height(), TextStyle{}.lineHeight() + 3 + TextStyle{.size = 12}.lineHeight(),
                tolerance);
    EXPECT_NEAR(stack.width(), widthOf("a longer one", {.size = 12}), tolerance);
}

}  // namespace
}  // namespace elmworth
