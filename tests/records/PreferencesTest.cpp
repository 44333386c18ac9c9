// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/Preferences.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/AtomicFile.h"
#include "records/FieldText.h"
#include "support/FileSizeLimit.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

class PreferencesTest : public testing::Test {
 protected:
    [[nodiscard]] std::string refusal(const Preference& preference, const char* text) {
        try {
            setPreference(settings_, preference, text);
        } catch (const Refused& refused) {
            return refused.what();
        }
        return "";
    }

    test::TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "Elmworth.ini";
    Settings settings_{file_};
};

TEST_F(PreferencesTest, whatWasNeverSetOrIsNoChoiceIsTheFirstOne) {
    EXPECT_EQ(preferenceText(settings_, preferences::appearance), "system");
    settings_.setString("appearance", "pink");
    EXPECT_EQ(preferenceText(settings_, preferences::appearance), "system");
}

TEST_F(PreferencesTest, aNumberIsNeverBelowNothing) {
    EXPECT_EQ(preferenceText(settings_, preferences::weeklyGoal), "0");
    settings_.setString("weeklyGoalHours", "-5");
    EXPECT_EQ(preferenceNumber(settings_, preferences::weeklyGoal), 0);
}

TEST_F(PreferencesTest, aChoiceIsTakenInAnyCaseAndKeptAsItIsSpelt) {
    setPreference(settings_, preferences::trayStyle, "TIMEANDPROJECT");
    EXPECT_EQ(settings_.string("menuBarStyle"), "timeAndProject");
}

TEST_F(PreferencesTest, whatIsNoChoiceIsRefusedWithTheChoices) {
    EXPECT_EQ(refusal(preferences::appearance, "pink"),
              "“pink” is no value of appearance. Choose one of: system, dark, light.");
    EXPECT_EQ(refusal(preferences::weeklyGoal, "81"),
              "“81” does not fit: weeklyGoalHours is a whole number from 0 to 80.");
    EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(PreferencesTest, whatCanNotBeWrittenIsRefusedAndStaysAsItWas) {
    setPreference(settings_, preferences::appearance, "dark");
    for (const auto* preference : {&preferences::appearance, &preferences::trayStyle}) {
        const auto before = settings_.string(preference->key);
        const test::FileSizeLimit limit(1);
        EXPECT_EQ(refusal(*preference, preference->choices.back().data()),
                  settingsNotWrittenText());
        EXPECT_EQ(settings_.string(preference->key), before);
    }
}

}  // namespace
}  // namespace elmworth
