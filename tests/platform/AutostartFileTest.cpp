// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/AutostartFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/AtomicFile.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Optional;

struct ExecLine {
    const char* name;
    std::string argument;
    std::string value;
};

class ExecTest : public testing::TestWithParam<ExecLine> {};

TEST_P(ExecTest, isQuotedAndReadBack) {
    const auto& [name, argument, value] = GetParam();
    EXPECT_EQ(formatExec({argument}), value);
    EXPECT_THAT(parseExec(value), Optional(std::vector{argument}));
}

INSTANTIATE_TEST_SUITE_P(
    Words, ExecTest,
    testing::Values(ExecLine{"plain", "/usr/bin/elmworth-app", R"("/usr/bin/elmworth-app")"},
                    ExecLine{"blank", "/opt/my apps/elmworth", R"("/opt/my apps/elmworth")"},
                    ExecLine{"quote", R"(/a"b)", R"("/a\\"b")"},
                    ExecLine{"dollar", "/a$HOME", R"("/a\\$HOME")"},
                    ExecLine{"backtick", "/a`b`", R"("/a\\`b\\`")"},
                    ExecLine{"backslash", R"(/a\b)", R"("/a\\\\b")"},
                    ExecLine{"percent", "/100%f", R"("/100%%f")"},
                    ExecLine{"lineBreak", "/a\nb", R"("/a\nb")"},
                    ExecLine{"otherScript", "/home/Zoë/アプリ", R"("/home/Zoë/アプリ")"}),
    [](const auto& line) { return line.param.name; });

TEST(ExecTest, takesUnquotedWordsApart) {
    EXPECT_THAT(parseExec("/usr/bin/env  elmworth-app %%"),
                Optional(std::vector<std::string>{"/usr/bin/env", "elmworth-app", "%"}));
    EXPECT_FALSE(parseExec("\"/usr/bin/elmworth"));
}

class AutostartFileTest : public testing::Test {
 protected:
    AutostartFileTest() {
        fs::create_directories(program.parent_path());
        std::ofstream(program) << "#!/bin/sh\n";
        fs::permissions(program, fs::perms::owner_all);
    }
    void write(const std::string& text) {
        fs::create_directories(folder);
        std::ofstream(item.file()) << text;
    }

    test::TemporaryFolder place;
    fs::path folder = place.path() / "config/autostart";
    fs::path program = place.path() / "my apps/100% \"$HOME\"/elmworth-app";
    AutostartFile item{folder, program};
};

TEST_F(AutostartFileTest, isOffAtFirst) {
    EXPECT_FALSE(item.isEnabled());
    item.setEnabled(false);
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(AutostartFileTest, isOnOnceItIsThereAndOffOnceItIsGone) {
    item.setEnabled(true);
    EXPECT_TRUE(item.isEnabled());
    EXPECT_THAT(readFile(item.file()),
                HasSubstr("\nExec=" + formatExec({program.string()}) + '\n'));
    item.setEnabled(false);
    EXPECT_FALSE(item.isEnabled());
    EXPECT_FALSE(fs::exists(item.file()));
}

TEST_F(AutostartFileTest, isOffWhereTheDesktopSwitchedItOff) {
    const std::string entry = "[Desktop Entry]\nExec=" + formatExec({program.string()}) + '\n';
    write(entry);
    EXPECT_TRUE(item.isEnabled());
    write(entry + "Hidden=true\n");
    EXPECT_FALSE(item.isEnabled());
    write(entry + "X-GNOME-Autostart-enabled=false\n");
    EXPECT_FALSE(item.isEnabled());
    write(entry + "[Desktop Action panel]\nHidden=true\n");
    EXPECT_TRUE(item.isEnabled());
}

TEST_F(AutostartFileTest, isOffWhereItsProgramIsGone) {
    item.setEnabled(true);
    fs::remove(program);
    EXPECT_FALSE(item.isEnabled());
}

TEST_F(AutostartFileTest, repairsAnEntryThatStartsNothing) {
    write("nonsense");
    EXPECT_FALSE(item.isEnabled());
    item.setEnabled(true);
    EXPECT_TRUE(item.isEnabled());
}

TEST_F(AutostartFileTest, saysWhyItCannotBeWrittenAndStaysOff) {
    fs::create_directories(folder.parent_path());
    std::ofstream(folder) << "a file in the folder's place";
    try {
        item.setEnabled(true);
        FAIL();
    } catch (const LoginItemError& error) {
        EXPECT_THAT(error.what(), HasSubstr(item.file().string() + "” can't be changed: "));
    }
    EXPECT_FALSE(item.isEnabled());
}

TEST_F(AutostartFileTest, tellsObserversOfAChangeOnly) {
    int calls = 0;
    const auto observation = item.observe([&] { ++calls; });
    item.setEnabled(true);
    EXPECT_EQ(calls, 1);
    fs::remove_all(folder);
    std::ofstream(folder) << "";
    EXPECT_THROW(item.setEnabled(true), LoginItemError);
    EXPECT_EQ(calls, 1);
}

TEST_F(AutostartFileTest, startsTheImageThatTheProgramRunsFrom) {
    {
        const test::ScopedEnvironment none("APPIMAGE", "");
        EXPECT_EQ(AutostartFile::startable(program), program);
    }
    const test::ScopedEnvironment image("APPIMAGE", "/home/me/Elmworth.AppImage");
    EXPECT_EQ(AutostartFile::startable(program), "/home/me/Elmworth.AppImage");
}

TEST(NoLoginItemTest, staysOff) {
    NoLoginItem item;
    EXPECT_THROW(item.setEnabled(true), LoginItemError);
    EXPECT_FALSE(item.isEnabled());
}

}  // namespace
}  // namespace elmworth
