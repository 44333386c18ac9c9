// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/Icons.h"

#include <gtest/gtest.h>

#include <QRawFont>

#include "theme/fonts/Fonts.h"

namespace elmworth {
namespace {

TEST(Icons, eachNameHasAGlyphOfTheIconFont) {
    loadEmbeddedFonts();
    const QRawFont font = QRawFont::fromFont(QFont(QStringLiteral("Elmworth Icons")));
    ASSERT_EQ(font.familyName(), QStringLiteral("Elmworth Icons"));
    for (const QString& name : iconNames()) {
        EXPECT_TRUE(font.supportsCharacter(iconGlyph(name))) << name.toStdString();
    }
}

TEST(Icons, anUnknownNameGivesAnEmptySquareThatNoOtherHas) {
    loadEmbeddedFonts();
    const QChar square = iconGlyph(u"no.such.image");
    EXPECT_TRUE(
        QRawFont::fromFont(QFont(QStringLiteral("Elmworth Icons"))).supportsCharacter(square));
    EXPECT_EQ(iconGlyph(u""), square);
    EXPECT_EQ(iconGlyph(u"clock.fil"), square);
    for (const QString& name : iconNames()) EXPECT_NE(iconGlyph(name), square);
}

TEST(Icons, statesThatMustNotBeMixedUpLookDifferent) {
    EXPECT_NE(iconGlyph(u"play"), iconGlyph(u"stop"));
    EXPECT_NE(iconGlyph(u"circle"), iconGlyph(u"check-circle-filled"));
    EXPECT_NE(iconGlyph(u"clock"), iconGlyph(u"record"));
    EXPECT_NE(iconGlyph(u"tray"), iconGlyph(u"tray-full"));
}

}  // namespace
}  // namespace elmworth
