// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/AppAppearance.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>

namespace elmworth {
namespace {

class Appearance : public testing::Test {
 protected:
    ~Appearance() override {
        appearance.setSetting(AppearanceSetting::system);
        appearance.setDesktopDark({});
        appearance.setReducedMotion(false);
        QGuiApplication::setPalette({});
    }

    static void setPaletteGround(Qt::GlobalColor color) {
        QPalette palette;
        palette.setColor(QPalette::Window, color);
        QGuiApplication::setPalette(palette);
        QCoreApplication::processEvents();
    }

    AppAppearance& appearance = AppAppearance::instance();
};

TEST_F(Appearance, followsThePaletteWhileNobodySaysMore) {
    setPaletteGround(Qt::black);
    EXPECT_TRUE(appearance.isDark());
    setPaletteGround(Qt::white);
    EXPECT_FALSE(appearance.isDark());
}

TEST_F(Appearance, theDesktopOverrulesThePalette) {
    setPaletteGround(Qt::white);
    appearance.setDesktopDark(true);
    EXPECT_TRUE(appearance.isDark());
    appearance.setDesktopDark({});
    EXPECT_FALSE(appearance.isDark());
}

TEST_F(Appearance, theUserOverrulesTheDesktop) {
    appearance.setDesktopDark(true);
    appearance.setSetting(AppearanceSetting::light);
    EXPECT_FALSE(appearance.isDark());
    appearance.setSetting(AppearanceSetting::system);
    EXPECT_TRUE(appearance.isDark());
    appearance.setDesktopDark(false);
    appearance.setSetting(AppearanceSetting::dark);
    EXPECT_TRUE(appearance.isDark());
}

TEST_F(Appearance, tellsOnlyChanges) {
    appearance.setDesktopDark(false);
    QSignalSpy dark(&appearance, &AppAppearance::darkChanged);
    appearance.setDesktopDark(false);
    appearance.setSetting(AppearanceSetting::light);
    EXPECT_EQ(dark.size(), 0);
    appearance.setSetting(AppearanceSetting::dark);
    EXPECT_EQ(dark.size(), 1);
    QSignalSpy motion(&appearance, &AppAppearance::reducedMotionChanged);
    appearance.setReducedMotion(true);
    appearance.setReducedMotion(true);
    EXPECT_EQ(motion.size(), 1);
}

TEST(AppearanceSettingText, anyTextThatIsNotARawValueCountsAsSystem) {
    EXPECT_EQ(appearanceSetting("dark"), AppearanceSetting::dark);
    EXPECT_EQ(appearanceSetting("light"), AppearanceSetting::light);
    for (const char* text : {"system", "", "Dark", "auto"}) {
        EXPECT_EQ(appearanceSetting(text), AppearanceSetting::system) << text;
    }
    for (const auto setting :
         {AppearanceSetting::system, AppearanceSetting::dark, AppearanceSetting::light}) {
        EXPECT_EQ(appearanceSetting(rawValue(setting)), setting);
    }
}

}  // namespace
}  // namespace elmworth
