// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/LiveAppearance.h"

#include <gtest/gtest.h>

#include <optional>

#include "support/TemporaryFolder.h"
#include "theme/AppAppearance.h"

namespace elmworth {
namespace {

/// A desktop whose preferences a test sets.
class ManualColorScheme final : public ColorScheme {
 public:
    [[nodiscard]] Preferences preferences() const override { return present_; }
    [[nodiscard]] Observation observe(std::function<void()> changed) override {
        changed_ = std::make_shared<std::function<void()>>(std::move(changed));
        return changed_;
    }
    void prefer(const Preferences& preferences) {
        present_ = preferences;
        if (changed_) (*changed_)();
    }

 private:
    Preferences present_;
    std::shared_ptr<std::function<void()>> changed_;
};

class LiveAppearanceTest : public testing::Test {
 protected:
    ~LiveAppearanceTest() override {
        defaults.remove("appearance");
        desktop.prefer({});
    }

    test::TemporaryFolder folder;
    Settings defaults{folder.path() / "defaults.ini"};
    ManualColorScheme desktop;
    LiveAppearance live{defaults, desktop};
    AppAppearance& appearance = AppAppearance::instance();
};

TEST_F(LiveAppearanceTest, theDesktopIsFollowedLive) {
    desktop.prefer({true, false});
    EXPECT_TRUE(appearance.isDark());
    desktop.prefer({false, true});
    EXPECT_FALSE(appearance.isDark());
    EXPECT_TRUE(appearance.hasReducedMotion());
}

TEST_F(LiveAppearanceTest, theSettingOverrulesTheDesktopLive) {
    desktop.prefer({true, false});
    defaults.setString("appearance", "light");
    EXPECT_FALSE(appearance.isDark());
    desktop.prefer({false, false});
    defaults.setString("appearance", "dark");
    EXPECT_TRUE(appearance.isDark());
    for (const char* text : {"system", "Dark", ""}) {
        defaults.setString("appearance", text);
        EXPECT_FALSE(appearance.isDark()) << text;
    }
}

TEST_F(LiveAppearanceTest, whatIsThereAtFirstCounts) {
    defaults.setString("appearance", "dark");
    ManualColorScheme still;
    still.prefer({false, true});
    const LiveAppearance another(defaults, still);
    EXPECT_TRUE(appearance.isDark());
    EXPECT_TRUE(appearance.hasReducedMotion());
}

}  // namespace
}  // namespace elmworth
