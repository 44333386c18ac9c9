// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/fonts/Fonts.h"

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>
#include <array>

namespace elmworth {
namespace {

constexpr std::array weights{QFont::Normal, QFont::Medium, QFont::DemiBold, QFont::Bold};

QString digits(char digit) {
    return QString(6, QLatin1Char(digit));
}

TEST(Fonts, eachFaceIsEmbeddedAndNotReplacedByAnother) {
    loadEmbeddedFonts();
    for (const auto weight : weights) {
        for (const QFont& font : {textFont(10, weight), tabularFont(10, weight)}) {
            const QFontInfo info(font);
            EXPECT_EQ(info.family(), font.family());
            EXPECT_EQ(info.weight(), weight);
        }
    }
    EXPECT_EQ(QFontInfo(labelFont(8)).family(), labelFontFamily());
}

TEST(Fonts, areThereOnceTheThreadThatLoadsThemIsDone) {
    loadFontsMeanwhile().get();
    for (const auto& family : {textFontFamily(), tabularFontFamily(), labelFontFamily()})
        EXPECT_TRUE(QFontDatabase::hasFamily(family)) << qPrintable(family);
}

TEST(Fonts, loadingAgainChangesNothing) {
    loadEmbeddedFonts();
    const auto before = QFontDatabase::families();
    loadEmbeddedFonts();
    EXPECT_EQ(QFontDatabase::families(), before);
}

TEST(Fonts, tabularDigitsHaveOneWidth) {
    loadEmbeddedFonts();
    for (const auto weight : weights) {
        const QFontMetricsF metrics(tabularFont(100, weight));
        for (char digit = '1'; digit <= '9'; ++digit) {
            EXPECT_NEAR(metrics.horizontalAdvance(digits(digit)),
                        metrics.horizontalAdvance(digits('0')), 0.01)
                << digit;
        }
    }
}

TEST(Fonts, lettersOfBothFamiliesAreTheSame) {
    loadEmbeddedFonts();
    const QString letters = QStringLiteral("Website redesign");
    for (const auto weight : weights) {
        EXPECT_EQ(QFontMetricsF(textFont(100, weight)).horizontalAdvance(letters),
                  QFontMetricsF(tabularFont(100, weight)).horizontalAdvance(letters));
    }
}

TEST(Fonts, textsAreSetWithTheGlyphsOfTheirCharacters) {
    loadEmbeddedFonts();
    const QRawFont font = QRawFont::fromFont(textFont(10));
    for (const char* text : {"10:30", "(a)", "->", "12x34"}) {
        const QString characters = QString::fromLatin1(text);
        QTextLayout layout(characters, textFont(10));
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        ASSERT_EQ(layout.glyphRuns().size(), 1);
        EXPECT_EQ(layout.glyphRuns().first().glyphIndexes(), font.glyphIndexesForString(characters))
            << text;
    }
}

}  // namespace
}  // namespace elmworth
