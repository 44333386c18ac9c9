// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/FileWatch.h"

#include <gtest/gtest.h>

#include <QTest>
#include <fstream>

#include "platform/AtomicFile.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

class FileWatchTest : public testing::Test {
 protected:
    /// Whether the watch has told of a change after which the file holds `text`.
    bool tellsOf(const std::string& text) {
        return QTest::qWaitFor([&] { return seen_ == text; }, 60'000);
    }

    test::TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "Elmworth" / "Elmworth.ini";
    std::string seen_ = "nothing yet";
    FileWatch watch_{
        file_, [this] { seen_ = std::filesystem::exists(file_) ? readFile(file_) : "no file"; }};
};

TEST_F(FileWatchTest, tellsOfAFileThatIsMadeReplacedWrittenAndRemovedAgainAndAgain) {
    for (const std::string round : {"1", "2"}) {
        writeAtomically(file_, "made " + round);
        EXPECT_TRUE(tellsOf("made " + round));
        writeAtomically(file_, "replaced " + round);
        EXPECT_TRUE(tellsOf("replaced " + round));
        std::ofstream(file_) << "written " << round;
        EXPECT_TRUE(tellsOf("written " + round));
        std::filesystem::remove(file_);
        EXPECT_TRUE(tellsOf("no file"));
    }
}

TEST_F(FileWatchTest, tellsOfAFileElsewhereThatALinkLeadsTo) {
    const auto target = folder_.path() / "elsewhere.ini";
    writeAtomically(target, "first");
    std::filesystem::create_symlink(target, file_);
    EXPECT_TRUE(tellsOf("first"));
    std::ofstream(target) << "written";
    EXPECT_TRUE(tellsOf("written"));
    writeAtomically(target, "replaced");
    EXPECT_TRUE(tellsOf("replaced"));
}

TEST(FileWatch, watchesNothingWhereItsFolderCannotBeMade) {
    const test::TemporaryFolder folder;
    writeAtomically(folder.path() / "Elmworth", "in the way");
    EXPECT_NO_THROW(FileWatch(folder.path() / "Elmworth" / "Elmworth.ini", [] {}));
}

}  // namespace
}  // namespace elmworth
