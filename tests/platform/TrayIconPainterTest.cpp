// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/TrayIconPainter.h"

#include <gmock/gmock.h>

#include "theme/fonts/Fonts.h"

namespace elmworth {
namespace {

class TrayIconPainterTest : public testing::Test {
 protected:
    TrayIconPainterTest() { loadEmbeddedFonts(); }

    [[nodiscard]] int pixelsLike(const QImage& image, const QColor& color) const {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == color;
        }
        return count;
    }

    TrayIconStyle style_{QStringLiteral("Elmworth Icons"), QChar(0xe8b5), QChar(0xe837),
                         tabularFontFamily()};
    TrayFace running_{.icon = TrayFace::Icon::running, .iconText = "1:05"};
};

TEST_F(TrayIconPainterTest, eachSizeOfAPanelHasAPictureOfItsOwn) {
    std::vector<int> sizes;
    for (const auto& image : drawTrayIcons(style_, running_, true)) {
        EXPECT_EQ(image.width(), image.height());
        sizes.push_back(image.width());
    }
    EXPECT_THAT(sizes, testing::ElementsAre(16, 22, 24, 32, 44, 48, 64));
}

TEST_F(TrayIconPainterTest, aRunningTimerShowsInAnotherColour) {
    EXPECT_EQ(pixelsLike(drawTrayIcon(style_, {}, 48, true), style_.accent), 0);
    EXPECT_GT(pixelsLike(drawTrayIcon(style_, running_, 48, false), style_.accent), 50);
}

TEST_F(TrayIconPainterTest, anotherTimeIsAnotherPictureOnlyWhereTheTimeIsDrawn) {
    TrayFace later = running_;
    later.iconText = "1:06";
    const auto draw = [this](const TrayFace& face, bool withText) {
        return drawTrayIcon(style_, face, 22, withText);
    };
    EXPECT_NE(draw(running_, true), draw(later, true));
    EXPECT_EQ(draw(running_, false), draw(later, false));
}

TEST_F(TrayIconPainterTest, aLongTimeStaysInTheIcon) {
    for (const char* text : {"0:00", "10:00", "100:00", "9999:59", "x"}) {
        TrayFace face = running_;
        face.iconText = text;
        const QImage image = drawTrayIcon(style_, face, 16, true);
        for (int x = 0; x < 16; ++x) {
            EXPECT_NE(image.pixelColor(x, 0), style_.accent) << text;
            EXPECT_NE(image.pixelColor(x, 15), style_.foreground) << text;
        }
    }
}

}  // namespace
}  // namespace elmworth
