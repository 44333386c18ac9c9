// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/Contrast.h"

#include <gtest/gtest.h>

namespace elmworth {
namespace {

TEST(Contrast, blackAndWhiteAreFarthestApart) {
    EXPECT_NEAR(contrastRatio(Qt::black, Qt::white), 21, 0.01);
    EXPECT_NEAR(contrastRatio(Qt::white, Qt::black), 21, 0.01);
    EXPECT_NEAR(contrastRatio(Qt::gray, Qt::gray), 1, 0.01);
    EXPECT_NEAR(contrastRatio(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

TEST(Contrast, aTranslucentColourLetsTheGroundThrough) {
    EXPECT_EQ(composed(QColor(255, 0, 0, 0), Qt::blue).rgb(), QColor(Qt::blue).rgb());
    EXPECT_EQ(composed(QColor(255, 255, 255, 51), Qt::black).rgb(), QColor(51, 51, 51).rgb());
}

TEST(Contrast, aLegibleColourStaysAsItIs) {
    EXPECT_EQ(legible(Qt::white, Qt::black), QColor(Qt::white));
}

TEST(Contrast, anyColourBecomesLegibleOnAnyGround) {
    for (int hue = 0; hue < 360; hue += 30) {
        for (const int brightness : {0, 60, 128, 200, 255}) {
            const QColor ground = QColor::fromHsv(hue, 200, brightness);
            for (const QColor& color : {ground, QColor(Qt::white), QColor(Qt::black)}) {
                EXPECT_GE(contrastRatio(legible(color, ground), ground), textContrast)
                    << hue << ' ' << brightness;
            }
        }
    }
}

TEST(Contrast, aLegibleColourKeepsItsHueWhenItCan) {
    const QColor violet(0x7C, 0x6C, 0xFF);
    EXPECT_NEAR(legible(violet, Qt::black).hueF(), violet.hueF(), 0.02);
}

TEST(Contrast, aSignThatWouldBeTakenForItsGroundHasAnEdge) {
    const QColor violet(0x7C, 0x6C, 0xFF);
    EXPECT_EQ(edge(violet, Qt::black), violet);
    EXPECT_EQ(edge(violet, Qt::white), violet);
    EXPECT_EQ(edge(Qt::black, Qt::white), QColor(Qt::black));
    EXPECT_GE(contrastRatio(edge(Qt::white, Qt::white), Qt::white), signContrast);
    EXPECT_GE(contrastRatio(edge(Qt::black, QColor(11, 11, 13)), QColor(11, 11, 13)), signContrast);
}

TEST(Contrast, aScrimMakesWhiteLegibleAndIsNoDarkerThanNeeded) {
    const QList<QColor> bright{Qt::yellow, Qt::cyan};
    const double opacity = scrimOpacity(bright);
    const auto covered = [](const QColor& color, double alpha) {
        return composed(QColor::fromRgbF(0, 0, 0, static_cast<float>(alpha)), color);
    };
    EXPECT_GE(contrastRatio(Qt::white, covered(Qt::yellow, opacity)), textContrast);
    EXPECT_LT(contrastRatio(Qt::white, covered(Qt::yellow, opacity - 0.02)), textContrast);
    EXPECT_EQ(scrimOpacity({Qt::black}), 0);
    EXPECT_EQ(scrimOpacity({}), 0);
}

TEST(Contrast, inkIsTheBetterOfBlackAndWhite) {
    EXPECT_EQ(inkOn({Qt::yellow}), QColor(Qt::black));
    EXPECT_EQ(inkOn({Qt::darkBlue}), QColor(Qt::white));
}

}  // namespace
}  // namespace elmworth
