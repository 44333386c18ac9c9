// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandTest.h"
#include "support/FileSizeLimit.h"
#include "support/TestLoginItem.h"

namespace elmworth {
namespace {

using test::keys;
using testing::ElementsAre;
using testing::HasSubstr;

class SettingsCommand : public test::CommandTest {
 protected:
    SettingsCommand() { loginItem_ = &item; }

    test::TestLoginItem item;
};

TEST_F(SettingsCommand, showsAllWithTheirMeaning) {
    EXPECT_EQ(
        output({"settings"}),
        "KEY                          VALUE   MEANING\n"
        "appearance                   system  Whether windows are dark or light\n"
        "menuBarStyle                 time    What the tray shows while a timer runs\n"
        "weeklyGoalHours              0       Hours to track in a week; 0 for no goal\n"
        "installUpdatesAutomatically  false   Whether newer releases are fetched and installed\n"
        "launchAtLogin                false   Whether Elmworth starts when you log in\n");
    const auto document = json({"settings"});
    EXPECT_THAT(keys(document), ElementsAre("appearance", "menuBarStyle", "weeklyGoalHours",
                                            "installUpdatesAutomatically", "launchAtLogin"));
    EXPECT_FALSE(document["installUpdatesAutomatically"].GetBool());
    EXPECT_EQ(document["weeklyGoalHours"].GetInt64(), 0);
    EXPECT_FALSE(document["launchAtLogin"].GetBool());
}

TEST_F(SettingsCommand, setsWhatItThenGets) {
    const std::vector<std::pair<std::string, std::string>> values{
        {"appearance", "dark"},
        {"menuBarStyle", "icon"},
        {"weeklyGoalHours", "40"},
        {"installUpdatesAutomatically", "true"},
        {"launchAtLogin", "true"}};
    for (const auto& [key, value] : values) {
        EXPECT_EQ(output({"settings", "set", key, value}), "");
        EXPECT_EQ(output({"settings", "get", key}), value + "\n");
    }
    EXPECT_EQ(Settings(defaults_.file()).string("menuBarStyle"), "icon");
    EXPECT_TRUE(item.isEnabled());
}

TEST_F(SettingsCommand, takesChoicesInAnyCase) {
    output({"settings", "set", "menuBarStyle", "TIMEANDPROJECT"});
    EXPECT_EQ(output({"settings", "get", "menuBarStyle"}), "timeAndProject\n");
}

TEST_F(SettingsCommand, givesOneAsJSON) {
    EXPECT_EQ(json({"settings", "set", "weeklyGoalHours", "12"})["weeklyGoalHours"].GetInt64(), 12);
    EXPECT_STREQ(json({"settings", "get", "appearance"})["appearance"].GetString(), "system");
}

TEST_F(SettingsCommand, refusesWhatASettingCannotBe) {
    expectRefusal({"settings", "set", "appearance", "sepia"}, 1,
                  "“sepia” is no value of appearance. Choose one of: system, dark, light.");
    expectRefusal({"settings", "set", "weeklyGoalHours", "81"}, 1,
                  "“81” does not fit: weeklyGoalHours is a whole number from 0 to 80.");
    expectRefusal({"settings", "set", "launchAtLogin", "perhaps"}, 1,
                  "“perhaps” does not fit: launchAtLogin is true or false.");
    expectRefusal({"settings", "get", "colour"}, 1,
                  "There is no setting “colour”. Choose one of: appearance, menuBarStyle, "
                  "weeklyGoalHours, installUpdatesAutomatically, launchAtLogin.");
    EXPECT_FALSE(defaults_.contains("appearance"));
}

TEST_F(SettingsCommand, keepsTheOldValueWhereTheFileCannotBeWritten) {
    output({"settings", "set", "appearance", "dark"});
    const test::FileSizeLimit full(0);
    expectRefusal({"settings", "set", "appearance", "light"}, 1,
                  "The settings file can't be written, so the change was not kept.");
    EXPECT_EQ(output({"settings", "get", "appearance"}), "dark\n");
}

TEST_F(SettingsCommand, tellsWhyTheLoginItemCannotBeChanged) {
    item.refuses = true;
    expectRefusal({"settings", "set", "launchAtLogin", "on"}, 1,
                  "The autostart folder can't be written.");
    EXPECT_EQ(output({"settings", "get", "launchAtLogin"}), "false\n");
}

TEST_F(SettingsCommand, countsAnUnknownTextInTheFileAsTheDefault) {
    defaults_.setString("appearance", "sepia");
    defaults_.setString("weeklyGoalHours", "-5");
    EXPECT_EQ(output({"settings", "get", "appearance"}), "system\n");
    EXPECT_EQ(output({"settings", "get", "weeklyGoalHours"}), "0\n");
}

TEST_F(SettingsCommand, wantsAKeyAndAValue) {
    expectUsageError({"settings", "set", "appearance"}, "VALUE is required");
    expectUsageError({"settings", "get"}, "KEY is required");
}

}  // namespace
}  // namespace elmworth
