// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What others do to the settings file, and what is left of a damaged one.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "platform/AtomicFile.h"
#include "platform/Settings.h"
#include "support/FileSizeLimit.h"
#include "support/Rows.h"
#include "support/SystemLogCapture.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class SettingsFileTest : public testing::Test {
 protected:
    void writeFile(const char* text) const {
        std::filesystem::create_directories(file_.parent_path());
        std::ofstream(file_) << text;
    }

    test::TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "Elmworth" / "Elmworth.ini";
};

TEST_F(SettingsFileTest, aChangeWritesItsOwnKeyOverWhatTheFileHoldsByThen) {
    writeFile("[General]\nappearance=dark\nweeklyGoalHours=32\nmainSection=clients\n");
    Settings defaults(file_);
    writeFile("[General]\nappearance=light\nweeklyGoalHours=30\nmenuBarStyle=icon\n");
    std::vector<std::string> heard;
    const auto observation =
        defaults.observe([&](std::string_view key) { heard.emplace_back(key); });
    defaults.setInteger("weeklyGoalHours", 40);

    const Settings written(file_);
    EXPECT_EQ(written.integer("weeklyGoalHours"), 40);
    EXPECT_EQ(written.string("appearance"), "light");
    EXPECT_EQ(written.string("menuBarStyle"), "icon");
    EXPECT_EQ(written.string("mainSection"), std::nullopt);
    EXPECT_EQ(defaults.string("appearance"), "light");
    EXPECT_THAT(heard, UnorderedElementsAre("appearance", "mainSection", "menuBarStyle",
                                            "weeklyGoalHours"));
}

TEST_F(SettingsFileTest, aValueThatOthersHaveChangedIsWrittenAgainWhenItIsSetToWhatItWas) {
    Settings defaults(file_);
    defaults.setString("appearance", "dark");
    Settings(file_).setString("appearance", "light");
    defaults.setString("appearance", "dark");
    EXPECT_EQ(Settings(file_).string("appearance"), "dark");
}

TEST_F(SettingsFileTest, aRemovalLeavesWhatOthersHaveWritten) {
    Settings defaults(file_);
    defaults.setString("a", "1");
    Settings(file_).setString("b", "2");
    defaults.remove("a");
    EXPECT_EQ(Settings(file_).string("a"), std::nullopt);
    EXPECT_EQ(Settings(file_).string("b"), "2");
}

TEST_F(SettingsFileTest, anObsoleteKeyGoesInTheWriteOfTheNewOne) {
    Settings defaults(file_);
    defaults.setString("old", "1");
    {
        const test::FileSizeLimit limit(0);
        defaults.setData("new", "2", "old");
    }
    EXPECT_EQ(Settings(file_).string("old"), "1");
    EXPECT_EQ(defaults.string("old"), std::nullopt);
    defaults.setString("other", "3");
    EXPECT_EQ(Settings(file_).string("old"), std::nullopt);
    EXPECT_EQ(Settings(file_).data("new"), "2");
}

TEST_F(SettingsFileTest, reloadingGivesEachChangeOfOthersAndTellsOfIt) {
    Settings defaults(file_);
    defaults.setString("a", "1");
    defaults.setString("b", "2");
    writeFile("[General]\nb=3\nc=4\n");
    std::vector<std::string> heard;
    const auto observation =
        defaults.observe([&](std::string_view key) { heard.emplace_back(key); });
    defaults.reload();
    EXPECT_THAT(heard, UnorderedElementsAre("a", "b", "c"));
    EXPECT_EQ(defaults.string("a"), std::nullopt);
    EXPECT_EQ(defaults.string("b"), "3");
    defaults.reload();
    EXPECT_EQ(heard.size(), 3U);
    writeFile("[General]\nb=5\nc=4\n");  // as long as it was, and of the same moment
    defaults.reload();
    EXPECT_EQ(defaults.string("b"), "5");
}

TEST_F(SettingsFileTest, whatCouldNotBeWrittenIsNotLostToAChangeOfOthers) {
    Settings defaults(file_);
    defaults.setString("a", "1");
    {
        const test::FileSizeLimit limit(0);
        defaults.setString("a", "2");
    }
    writeFile("[General]\na=3\nb=4\n");
    defaults.reload();
    EXPECT_EQ(defaults.string("a"), "2");
    EXPECT_EQ(defaults.string("b"), "4");
    defaults.setString("c", "5");
    EXPECT_EQ(Settings(file_).string("a"), "2");
}

/// What a file may become while the program runs, or before it starts.
struct Damage {
    const char* name;
    void (*inflict)(const std::filesystem::path& file);
    bool isKept = true;  ///< beside the new file
};

void PrintTo(const Damage& row, std::ostream* out) {
    *out << row.name;
}

template <const char* Text>
void becomes(const std::filesystem::path& file) {
    std::ofstream(file) << Text;
}

constexpr char halfALine[] = "[General]\nappearance=dark\nbusinessProf";
constexpr char latin1[] = "[General]\nappearance=dark\nname=Z\xFCrich\n";
constexpr char nothing[] = "";

class UnreadableSettings : public SettingsFileTest, public testing::WithParamInterface<Damage> {
 protected:
    /// What was kept of the file, by name; the settings file is not among it.
    [[nodiscard]] std::vector<std::filesystem::path> kept() const {
        std::vector<std::filesystem::path> files;
        for (const auto& entry : std::filesystem::directory_iterator(file_.parent_path())) {
            if (entry.path() != file_) files.push_back(entry.path());
        }
        return files;
    }
    void expectKept(const std::string& before) const {
        ASSERT_EQ(kept().size(), GetParam().isKept ? 1U : 0U);
        if (!GetParam().isKept) return;
        EXPECT_THAT(kept()[0].filename().string(),
                    testing::MatchesRegex("Elmworth.ini.damaged-20[0-9][0-9]-[0-9][0-9]-[0-9][0-9]"
                                          "T[0-9][0-9]-[0-9][0-9]-[0-9][0-9]"));
        EXPECT_EQ(readFile(kept()[0]), before);
    }
};

TEST_P(UnreadableSettings, areKeptUnderADatedNameBeforeAnythingIsWritten) {
    writeFile("");
    std::filesystem::remove(file_);
    GetParam().inflict(file_);
    const std::string before = readFile(file_);
    Settings defaults(file_);
    EXPECT_THAT(kept(), IsEmpty());
    defaults.setString("mainSection", "clients");
    defaults.setString("mainSection", "projects");
    EXPECT_FALSE(defaults.lastWriteFailed());
    EXPECT_EQ(Settings(file_).string("mainSection"), "projects");
    expectKept(before);
}

TEST_P(UnreadableSettings, ofARunningProgramLoseNothingThatItKnows) {
    Settings defaults(file_);
    defaults.setString("businessName", "Jane");
    std::filesystem::remove(file_);
    GetParam().inflict(file_);
    const std::string before = readFile(file_);
    defaults.reload();
    EXPECT_EQ(defaults.string("businessName"), "Jane");
    defaults.setString("mainSection", "clients");
    EXPECT_EQ(Settings(file_).string("businessName"), "Jane");
    EXPECT_EQ(Settings(file_).string("mainSection"), "clients");
    expectKept(before);
}

INSTANTIATE_TEST_SUITE_P(Row, UnreadableSettings,
                         testing::Values(Damage{"halfALine", &becomes<halfALine>},
                                         Damage{"anotherEncoding", &becomes<latin1>},
                                         Damage{"zeros",
                                                [](const std::filesystem::path& file) {
                                                    std::ofstream(file) << std::string(512, '\0');
                                                }},
                                         Damage{"nothing", &becomes<nothing>, false}),
                         test::rowName);

/// Somebody whose files have permissions that count, which those of root have not.
class OrdinaryUser {
 public:
    explicit OrdinaryUser(const std::filesystem::path& ownFolder) {
        if (!isRoot_) return;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(ownFolder))
            EXPECT_EQ(::chown(entry.path().c_str(), nobody, nobody), 0);
        EXPECT_EQ(::chown(ownFolder.c_str(), nobody, nobody), 0);
        EXPECT_EQ(::seteuid(nobody), 0);
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() {
        if (!isRoot_) return;
        EXPECT_EQ(::seteuid(0), 0);
    }

 private:
    static constexpr uid_t nobody = 65534;
    bool isRoot_ = ::geteuid() == 0;
};

TEST_F(SettingsFileTest, aFileThatMayNotBeReadIsKeptUnderADatedName) {
    writeFile("[General]\nappearance=dark\n");
    std::filesystem::permissions(file_, std::filesystem::perms::none);
    {
        const OrdinaryUser user(folder_.path());
        Settings defaults(file_);
        EXPECT_EQ(defaults.string("appearance"), std::nullopt);
        defaults.setString("mainSection", "clients");
        EXPECT_FALSE(defaults.lastWriteFailed());
        EXPECT_EQ(Settings(file_).string("mainSection"), "clients");
    }
    std::vector<std::string> texts;
    for (const auto& entry : std::filesystem::directory_iterator(file_.parent_path())) {
        if (entry.path() == file_) continue;
        std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_read);
        texts.push_back(readFile(entry.path()));
    }
    EXPECT_THAT(texts, ElementsAre("[General]\nappearance=dark\n"));
}

TEST_F(SettingsFileTest, ofADamagedFileWhatCanBeReadStays) {
    writeFile(halfALine);
    Settings defaults(file_);
    EXPECT_EQ(defaults.string("appearance"), "dark");
    defaults.setString("mainSection", "clients");
    EXPECT_EQ(Settings(file_).string("appearance"), "dark");
}

TEST_F(SettingsFileTest, severalDamagedFilesOfOneMomentAreAllKept) {
    for (const char* value : {"1", "2", "3"}) {
        writeFile((std::string("damaged ") + value).c_str());
        Settings(file_).setString("key", value);
    }
    std::vector<std::string> texts;
    for (const auto& entry : std::filesystem::directory_iterator(file_.parent_path())) {
        if (entry.path() != file_) texts.push_back(readFile(entry.path()));
    }
    EXPECT_THAT(texts, UnorderedElementsAre("damaged 1", "damaged 2", "damaged 3"));
}

TEST_F(SettingsFileTest, theSystemLogSaysWhereADamagedFileIs) {
    writeFile(halfALine);
    Settings defaults(file_);
    const test::SystemLogCapture log;
    defaults.setString("mainSection", "clients");
    EXPECT_THAT(log.take(),
                testing::StartsWith("Elmworth: the settings file can't be read; it is kept as " +
                                    file_.string() + ".damaged-"));
}

TEST_F(SettingsFileTest, aDamagedFileStaysWhereItIsWhenNoneCanTakeItsPlace) {
    writeFile(halfALine);
    Settings defaults(file_);
    {
        const test::FileSizeLimit limit(0);
        defaults.setString("mainSection", "clients");
    }
    EXPECT_TRUE(defaults.lastWriteFailed());
    EXPECT_EQ(readFile(file_), halfALine);
    defaults.setString("mainSection", "projects");
    EXPECT_FALSE(defaults.lastWriteFailed());
}

}  // namespace
}  // namespace elmworth
