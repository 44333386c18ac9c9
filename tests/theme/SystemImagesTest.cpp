// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/SystemImages.h"

#include <gtest/gtest.h>

#include <QRawFont>

#include "theme/fonts/Fonts.h"

namespace elmworth {
namespace {

TEST(SystemImages, EachNameHasAGlyphOfTheIconFont) {
    loadEmbeddedFonts();
    const QRawFont font = QRawFont::fromFont(QFont(QStringLiteral("Material Icons")));
    ASSERT_EQ(font.familyName(), QStringLiteral("Material Icons"));
    for (const QString& name : systemImageNames()) {
        EXPECT_TRUE(font.supportsCharacter(systemImageGlyph(name))) << name.toStdString();
    }
}

TEST(SystemImages, AnUnknownNameGivesAnEmptySquareThatNoOtherHas) {
    loadEmbeddedFonts();
    const QChar square = systemImageGlyph(u"no.such.image");
    EXPECT_TRUE(
        QRawFont::fromFont(QFont(QStringLiteral("Material Icons"))).supportsCharacter(square));
    EXPECT_EQ(systemImageGlyph(u""), square);
    EXPECT_EQ(systemImageGlyph(u"clock.fil"), square);
    for (const QString& name : systemImageNames()) EXPECT_NE(systemImageGlyph(name), square);
}

TEST(SystemImages, StatesThatMustNotBeMixedUpLookDifferent) {
    EXPECT_NE(systemImageGlyph(u"play.fill"), systemImageGlyph(u"stop.fill"));
    EXPECT_NE(systemImageGlyph(u"circle"), systemImageGlyph(u"checkmark.circle.fill"));
    EXPECT_NE(systemImageGlyph(u"clock"), systemImageGlyph(u"record.circle"));
    EXPECT_NE(systemImageGlyph(u"tray"), systemImageGlyph(u"tray.full"));
}

}  // namespace
}  // namespace elmworth
