// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/DetachedStart.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "app/SiblingProgram.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

namespace fs = std::filesystem;

/// A program that stands beside this one while it lives.
class Sibling {
 public:
    explicit Sibling(const std::string& script) {
        std::ofstream(path()) << "#!/bin/sh\n" << script;
        fs::permissions(path(), fs::perms::owner_all);
    }
    Sibling(const Sibling&) = delete;
    Sibling& operator=(const Sibling&) = delete;
    ~Sibling() { fs::remove(path()); }

    const std::string name = "sibling-" + std::to_string(::getpid());

 private:
    [[nodiscard]] fs::path path() const { return siblingPath(name); }
};

TEST(DetachedStart, endsAsSoonAsTheProgramIsReady) {
    const test::TemporaryFolder folder;
    const auto pipe = folder.path() / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    // It goes on until somebody writes into the pipe, which happens after the start has ended.
    const Sibling program("printf 'a warning\\n\\000' >&2\nexec 2>/dev/null\nread _ <" +
                          pipe.string());
    const auto result = startDetached(program.name, {});
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.errors, "");
    std::ofstream(pipe) << "end\n";
}

TEST(DetachedStart, tellsWhyTheProgramEnded) {
    const Sibling program("echo \"$1 $2 failed\" >&2\nexit 3\n");
    const auto result = startDetached(program.name, {"--panel"});
    EXPECT_EQ(result.exitStatus, 3);
    EXPECT_EQ(result.errors, "--panel " + std::string(detachedSwitch) + " failed\n");
}

TEST(DetachedStart, leavesTheProgramNeitherTheTerminalNorItsSession) {
    const Sibling program(
        "[ \"$(cut -d ' ' -f 6 /proc/$$/stat)\" = $$ ] || echo session >&2\n"
        "[ \"$(readlink /proc/$$/fd/0)\" = /dev/null ] || echo input >&2\n"
        "[ \"$(readlink /proc/$$/fd/1)\" = /dev/null ] || echo output >&2\n");
    EXPECT_EQ(startDetached(program.name, {}).errors, "");
}

TEST(DetachedStart, ofAProgramThatIsNotThereSaysSo) {
    const auto result = startDetached("no-such-program", {});
    EXPECT_EQ(result.exitStatus, 1);
    EXPECT_EQ(result.errors, siblingPath("no-such-program").string() +
                                 " can't be started: No such file or directory.\n");
}

TEST(SiblingProgram, takesThePlaceOfThisProcessWithItsArguments) {
    const Sibling program("[ \"$1\" = 'two words' ] && exit 7\n");
    EXPECT_EXIT(::_exit(execSibling(program.name, {"two words"})), testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace elmworth
