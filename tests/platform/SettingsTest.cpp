// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <limits>

#include "platform/AtomicFile.h"
#include "support/FileSizeLimit.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SettingsTest : public testing::Test {
 protected:
    void writeFile(const char* text) const {
        std::filesystem::create_directories(file_.parent_path());
        std::ofstream(file_) << text;
    }

    test::TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "Elmworth" / "Elmworth.ini";
};

TEST_F(SettingsTest, aMissingFileHoldsNothingAndIsNotMade) {
    const Settings defaults(file_);
    EXPECT_EQ(defaults.string("mainSection"), std::nullopt);
    EXPECT_EQ(defaults.data("businessProfile"), std::nullopt);
    EXPECT_FALSE(defaults.lastWriteFailed());
    EXPECT_THAT(folder_.names(), IsEmpty());
}

TEST_F(SettingsTest, valuesAreThereAtTheNextStart) {
    {
        Settings defaults(file_);
        defaults.setString("mainSection", "timesheet");
        defaults.setInteger("weeklyGoalHours", 40);
        defaults.setBoolean("didOnboard", true);
        defaults.setBoolean("timesheetUnbilledOnly", false);
        defaults.setData("businessProfile", "{\"name\":\"X\"}");
        EXPECT_FALSE(defaults.lastWriteFailed());
    }
    const Settings defaults(file_);
    EXPECT_EQ(defaults.string("mainSection"), "timesheet");
    EXPECT_EQ(defaults.integer("weeklyGoalHours"), 40);
    EXPECT_EQ(defaults.boolean("didOnboard"), true);
    EXPECT_EQ(defaults.boolean("timesheetUnbilledOnly"), false);
    EXPECT_EQ(defaults.data("businessProfile"), "{\"name\":\"X\"}");
}

TEST_F(SettingsTest, textsSurviveTheFileFormat) {
    const std::vector<std::string> texts{
        "",         " blanks ",   "a, b; c = d",        "\"quoted\" \\ backslash",
        "@at",      "@Invalid()", "line\nbreak\ttab",   "Zürich 👍",
        "%percent", "[section]",  "\xe2\x80\xa8\x01 7",
    };
    for (const auto& text : texts) {
        Settings(file_).setString("text", text);
        EXPECT_EQ(Settings(file_).string("text"), text);
    }
}

TEST_F(SettingsTest, allBytesSurviveTheFileFormat) {
    std::string bytes;
    for (int round = 0; round < 2; ++round)
        for (int byte = 0; byte < 256; ++byte) bytes.append(1, static_cast<char>(byte)).append("0");
    Settings(file_).setData("blob", bytes);
    EXPECT_EQ(Settings(file_).data("blob"), bytes);
    Settings(file_).setData("blob", "");
    EXPECT_EQ(Settings(file_).data("blob"), "");
}

TEST_F(SettingsTest, integersAreExactIn64Bits) {
    for (const auto value : {std::numeric_limits<std::int64_t>::max(),
                             std::numeric_limits<std::int64_t>::min(), std::int64_t{0}}) {
        Settings(file_).setInteger("number", value);
        EXPECT_EQ(Settings(file_).integer("number"), value);
    }
}

TEST_F(SettingsTest, aValueOfAnotherTypeIsAbsent) {
    Settings defaults(file_);
    defaults.setString("text", "forty");
    defaults.setData("blob", "40");
    EXPECT_EQ(defaults.integer("text"), std::nullopt);
    EXPECT_EQ(defaults.boolean("text"), std::nullopt);
    EXPECT_EQ(defaults.data("text"), std::nullopt);
    EXPECT_EQ(defaults.string("blob"), std::nullopt);
    EXPECT_EQ(defaults.integer("blob"), std::nullopt);
}

TEST_F(SettingsTest, onlyTheUserCanReadThem) {
    Settings(file_).setString("key", "value");
    struct stat status {};
    ASSERT_EQ(::stat(file_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600);
    ASSERT_EQ(::stat(file_.parent_path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700);
}

TEST_F(SettingsTest, writingLeavesNothingButTheFile) {
    Settings(file_).setString("key", "value");
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(file_.parent_path()))
        names.push_back(entry.path().filename());
    EXPECT_THAT(names, ElementsAre("Elmworth.ini"));
}

TEST_F(SettingsTest, valuesWrittenByHandAreReadAndKept) {
    writeFile("[General]\nappearance=dark\nweeklyGoalHours=32\nlist=a, b\n\n[other]\nkey=1\n");
    Settings defaults(file_);
    EXPECT_EQ(defaults.string("appearance"), "dark");
    EXPECT_EQ(defaults.integer("weeklyGoalHours"), 32);
    defaults.setString("appearance", "light");
    const std::string text = readFile(file_);
    EXPECT_THAT(text, testing::HasSubstr("list=a, b"));
    EXPECT_THAT(text, testing::HasSubstr("[other]\nkey=1"));
}

TEST_F(SettingsTest, aFullDiskKeepsTheOldFileAndTheNewValueInMemory) {
    Settings defaults(file_);
    defaults.setString("key", "old");
    const std::string before = readFile(file_);
    {
        const test::FileSizeLimit limit(4096);
        defaults.setString("key", std::string(20'000, 'x'));
    }
    EXPECT_TRUE(defaults.lastWriteFailed());
    EXPECT_EQ(readFile(file_), before);
    EXPECT_EQ(defaults.string("key"), std::string(20'000, 'x'));

    defaults.setString("other", "value");
    EXPECT_FALSE(defaults.lastWriteFailed());
    EXPECT_EQ(Settings(file_).string("key"), std::string(20'000, 'x'));
}

TEST_F(SettingsTest, aFolderThatCannotBeMadeIsToldByTheFlag) {
    writeAtomically(folder_.path() / "Elmworth", "a file in the way");
    Settings defaults(file_);
    defaults.setString("key", "value");
    EXPECT_TRUE(defaults.lastWriteFailed());
    EXPECT_EQ(defaults.string("key"), "value");
}

TEST_F(SettingsTest, observersHearOfEachChange) {
    Settings defaults(file_);
    std::vector<std::string> heard;
    const auto observation =
        defaults.observe([&](std::string_view key) { heard.emplace_back(key); });
    defaults.setString("a", "1");
    defaults.setString("b", "2");
    defaults.remove("a");
    EXPECT_THAT(heard, ElementsAre("a", "b", "a"));
    EXPECT_EQ(defaults.string("a"), std::nullopt);
    EXPECT_EQ(Settings(file_).string("a"), std::nullopt);
}

TEST_F(SettingsTest, anEqualValueWritesNothingAndTellsNobody) {
    Settings defaults(file_);
    defaults.setInteger("a", 1);
    std::filesystem::remove(file_);
    int changes = 0;
    const auto observation = defaults.observe([&](std::string_view) { ++changes; });
    defaults.setInteger("a", 1);
    defaults.remove("missing");
    EXPECT_EQ(changes, 0);
    EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(SettingsTest, aDeadObservationHearsNothing) {
    Settings defaults(file_);
    int changes = 0;
    auto observation = defaults.observe([&](std::string_view) { ++changes; });
    observation.reset();
    defaults.setString("a", "1");
    EXPECT_EQ(changes, 0);
}

TEST_F(SettingsTest, anObserverMayEndItselfAndSetValues) {
    Settings defaults(file_);
    std::vector<std::string> heard;
    Settings::Observation observation;
    observation = defaults.observe([&](std::string_view key) {
        heard.emplace_back(key);
        observation.reset();
        defaults.setString("b", "2");
    });
    defaults.setString("a", "1");
    EXPECT_THAT(heard, ElementsAre("a"));
    EXPECT_EQ(defaults.string("b"), "2");
}

TEST_F(SettingsTest, theUsersSettingsAreInTheFolderOfSettings) {
    const test::ScopedEnvironment config("XDG_CONFIG_HOME", "/config");
    EXPECT_EQ(Settings::standardFile(), "/config/Elmworth/Elmworth.ini");
}

TEST_F(SettingsTest, settingsInMemoryLastAsLongAsTheyStand) {
    Settings defaults{Settings::inMemory()};
    int heard = 0;
    const auto observation = defaults.observe([&](std::string_view) { ++heard; });
    defaults.setString("appearance", "dark");
    defaults.setInteger("weeklyGoalHours", 40);
    defaults.reload();
    EXPECT_EQ(defaults.string("appearance"), "dark");
    EXPECT_EQ(defaults.integer("weeklyGoalHours"), 40);
    EXPECT_FALSE(defaults.lastWriteFailed());
    EXPECT_EQ(heard, 2);
    EXPECT_FALSE(Settings{Settings::inMemory()}.contains("appearance"));
}

}  // namespace
}  // namespace elmworth
