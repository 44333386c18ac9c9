// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/AtomicFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <fstream>

#include "support/FileSizeLimit.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

using std::filesystem::filesystem_error;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

/// No file can be opened, as when a process has all that it may.
class NoMoreFiles {
 public:
    NoMoreFiles() {
        ::getrlimit(RLIMIT_NOFILE, &old_);
        const rlimit limit{0, old_.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }
    NoMoreFiles(const NoMoreFiles&) = delete;
    NoMoreFiles& operator=(const NoMoreFiles&) = delete;
    ~NoMoreFiles() { ::setrlimit(RLIMIT_NOFILE, &old_); }

 private:
    rlimit old_{};
};

class AtomicFileTest : public testing::Test {
 protected:
    static int modeOf(const std::filesystem::path& file) {
        return static_cast<int>(std::filesystem::status(file).permissions());
    }

    test::TemporaryFolder folder_;
    std::filesystem::path target_ = folder_.path() / "library.json";
};

TEST_F(AtomicFileTest, commitReplacesTheTarget) {
    writeAtomically(target_, "old");
    AtomicFile file(target_);
    file.write("new ");
    file.write(std::string_view("and\0longer", 10));
    EXPECT_EQ(readFile(target_), "old");
    file.commit();
    EXPECT_EQ(readFile(target_), std::string("new and\0longer", 14));
    EXPECT_THAT(folder_.names(), ElementsAre("library.json"));
}

TEST_F(AtomicFileTest, withoutCommitTheTargetStaysAndNothingIsLeft) {
    writeAtomically(target_, "old");
    {
        AtomicFile file(target_);
        file.write("new");
        EXPECT_EQ(folder_.names().size(), 2);
    }
    EXPECT_EQ(readFile(target_), "old");
    EXPECT_THAT(folder_.names(), ElementsAre("library.json"));
}

TEST_F(AtomicFileTest, onlyTheUserCanReadTheFile) {
    writeAtomically(target_, "secret");
    EXPECT_EQ(modeOf(target_), 0600);
}

TEST_F(AtomicFileTest, aFileOfTheProgramsOwnBecomesPrivateAgain) {
    writeAtomically(target_, "old");
    std::filesystem::permissions(target_, std::filesystem::perms{0644});
    writeAtomically(target_, "secret");
    EXPECT_EQ(modeOf(target_), 0600);
}

struct NamedFile {
    const char* name;
    unsigned umask;
    int replaced;  ///< the mode of the file that stands there; -1 for none
    int mode;
};

class NamedFiles : public AtomicFileTest, public testing::WithParamInterface<NamedFile> {};

TEST_P(NamedFiles, followTheUmaskAndKeepTheModeOfWhatTheyReplace) {
    const auto& [name, umask, replaced, mode] = GetParam();
    const auto file = folder_.path() / "file";
    std::filesystem::create_symlink("file", target_);
    if (replaced >= 0) {
        writeAtomically(file, "old");
        std::filesystem::permissions(file, static_cast<std::filesystem::perms>(replaced));
    }
    AtomicFile writer(target_, FileAccess::forUmask(umask));
    EXPECT_EQ(modeOf(writer.temporaryPath()), 0600);
    writer.commit();
    EXPECT_EQ(modeOf(file), mode);
}

INSTANTIATE_TEST_SUITE_P(AtomicFileTest, NamedFiles,
                         testing::Values(NamedFile{"everybodyMayRead", 0022, -1, 0644},
                                         NamedFile{"theGroupMayWrite", 0002, -1, 0664},
                                         NamedFile{"nobodyElse", 0077, -1, 0600},
                                         NamedFile{"aPrivateFileStaysOne", 0022, 0600, 0600},
                                         NamedFile{"aSharedFileStaysOne", 0077, 0664, 0664},
                                         NamedFile{"aFileToRunStaysOne", 0022, 0755, 0755},
                                         NamedFile{"aProtectedFileStaysOne", 0022, 0444, 0444}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(AtomicFileTest, theUmaskIsReadWithoutBeingChanged) {
    const mode_t former = ::umask(0027);
    EXPECT_EQ(currentUmask(), 0027U);
    EXPECT_EQ(currentUmask(), 0027U);
    EXPECT_EQ(::umask(former), 0027U);
}

TEST_F(AtomicFileTest, aFullDiskIsReportedAndLeavesTheOldContent) {
    writeAtomically(target_, "old");
    const std::string large(100'000, 'x');
    {
        const test::FileSizeLimit limit(60'000);
        EXPECT_THROW(writeAtomically(target_, large), filesystem_error);
    }
    EXPECT_EQ(readFile(target_), "old");
    EXPECT_THAT(folder_.names(), ElementsAre("library.json"));
}

TEST_F(AtomicFileTest, aFailureNamesTheTargetAndTheSystemsError) {
    const auto target = folder_.path() / "missing" / "file";
    try {
        writeAtomically(target, "new");
        FAIL() << "nothing was thrown";
    } catch (const filesystem_error& error) {
        EXPECT_EQ(error.path1(), target);
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
    }
}

TEST_F(AtomicFileTest, aFolderThatIsAFileIsReported) {
    writeAtomically(target_, "old");
    EXPECT_THROW(AtomicFile(target_ / "below"), filesystem_error);
    EXPECT_EQ(readFile(target_), "old");
}

TEST_F(AtomicFileTest, aTargetThatIsAFolderIsReportedAndLeavesNothing) {
    std::filesystem::create_directory(target_);
    EXPECT_THROW(writeAtomically(target_, "new"), filesystem_error);
    EXPECT_TRUE(std::filesystem::is_directory(target_));
    EXPECT_THAT(folder_.names(), ElementsAre("library.json"));
}

TEST_F(AtomicFileTest, aLinkStaysAndItsFileIsReplaced) {
    std::filesystem::create_directory(folder_.path() / "elsewhere");
    const auto file = folder_.path() / "elsewhere" / "settings";
    std::filesystem::create_symlink("elsewhere/settings", target_);
    for (const char* content : {"new", "newer"}) {
        writeAtomically(target_, content);
        EXPECT_TRUE(std::filesystem::is_symlink(target_));
        EXPECT_EQ(readFile(file), content);
    }
}

TEST_F(AtomicFileTest, aPipeIsRefusedAndStays) {
    ASSERT_EQ(::mkfifo(target_.c_str(), 0600), 0);
    EXPECT_THROW(writeAtomically(target_, "new"), filesystem_error);
    EXPECT_TRUE(std::filesystem::is_fifo(target_));
    EXPECT_THAT(folder_.names(), ElementsAre("library.json"));
}

TEST_F(AtomicFileTest, aFolderThatVanishesBeforeTheCommitIsReported) {
    const auto doomed = folder_.path() / "doomed";
    std::filesystem::create_directory(doomed);
    AtomicFile file(doomed / "file");
    file.write("new");
    std::filesystem::remove_all(doomed);
    EXPECT_THROW(file.commit(), filesystem_error);
}

TEST_F(AtomicFileTest, aFolderThatCannotBeOpenedAtTheCommitLeavesTheOldContent) {
    writeAtomically(target_, "old");
    AtomicFile file(target_);
    file.write("new");
    {
        const NoMoreFiles limit;
        EXPECT_THROW(file.commit(), filesystem_error);
    }
    EXPECT_EQ(readFile(target_), "old");
}

TEST_F(AtomicFileTest, otherCodeMayWriteToTheTemporaryPath) {
    AtomicFile file(target_);
    std::ofstream(file.temporaryPath()) << "by another";
    file.commit();
    EXPECT_EQ(readFile(target_), "by another");
}

TEST_F(AtomicFileTest, theLongestNameOfAFileSystemIsWritten) {
    const auto target = folder_.path() / std::string(255, 'n');
    writeAtomically(target, "new");
    EXPECT_EQ(readFile(target), "new");
}

TEST_F(AtomicFileTest, twoWritersOfOneTargetDoNotMix) {
    AtomicFile first(target_);
    AtomicFile second(target_);
    first.write("first");
    second.write("second");
    second.commit();
    first.commit();
    EXPECT_EQ(readFile(target_), "first");
}

TEST_F(AtomicFileTest, readingAMissingFileAFolderOrADeviceFails) {
    EXPECT_THROW((void)readFile(target_), filesystem_error);
    EXPECT_THROW((void)readFile(folder_.path()), filesystem_error);
    EXPECT_THROW((void)readFile("/dev/zero"), filesystem_error);
    ASSERT_EQ(::mkfifo(target_.c_str(), 0600), 0);
    EXPECT_THROW((void)readFile(target_), filesystem_error);
}

TEST_F(AtomicFileTest, readingGivesAllBytesOfALargeFile) {
    std::string content(200'000, '\0');
    for (std::size_t i = 0; i < content.size(); ++i) content[i] = static_cast<char>(i % 251);
    writeAtomically(target_, content);
    EXPECT_EQ(readFile(target_), content);
}

}  // namespace
}  // namespace elmworth
