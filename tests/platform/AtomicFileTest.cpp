// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/AtomicFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "support/FileSizeLimit.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

using std::filesystem::filesystem_error;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

class AtomicFileTest : public testing::Test {
 protected:
    test::TemporaryFolder folder_;
    std::filesystem::path target_ = folder_.path() / "library.json";
};

TEST_F(AtomicFileTest, CommitReplacesTheTarget) {
    writeAtomically(target_, "old");
    AtomicFile file(target_);
    file.write("new ");
    file.write(std::string_view("and\0longer", 10));
    EXPECT_EQ(readFile(target_), "old");
    file.commit();
    EXPECT_EQ(readFile(target_), std::string("new and\0longer", 14));
    EXPECT_THAT(folder_.names(), ElementsAre("library.json"));
}

TEST_F(AtomicFileTest, WithoutCommitTheTargetStaysAndNothingIsLeft) {
    writeAtomically(target_, "old");
    {
        AtomicFile file(target_);
        file.write("new");
        EXPECT_EQ(folder_.names().size(), 2);
    }
    EXPECT_EQ(readFile(target_), "old");
    EXPECT_THAT(folder_.names(), ElementsAre("library.json"));
}

TEST_F(AtomicFileTest, OnlyTheUserCanReadTheFile) {
    writeAtomically(target_, "secret");
    struct stat status {};
    ASSERT_EQ(::stat(target_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600);
}

TEST_F(AtomicFileTest, AFullDiskIsReportedAndLeavesTheOldContent) {
    writeAtomically(target_, "old");
    const std::string large(100'000, 'x');
    {
        const test::FileSizeLimit limit(60'000);
        EXPECT_THROW(writeAtomically(target_, large), filesystem_error);
    }
    EXPECT_EQ(readFile(target_), "old");
    EXPECT_THAT(folder_.names(), ElementsAre("library.json"));
}

TEST_F(AtomicFileTest, AFailureNamesTheTargetAndTheSystemsError) {
    const auto target = folder_.path() / "missing" / "file";
    try {
        writeAtomically(target, "new");
        FAIL() << "nothing was thrown";
    } catch (const filesystem_error& error) {
        EXPECT_EQ(error.path1(), target);
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
    }
}

TEST_F(AtomicFileTest, AFolderThatIsAFileIsReported) {
    writeAtomically(target_, "old");
    EXPECT_THROW(AtomicFile(target_ / "below"), filesystem_error);
    EXPECT_EQ(readFile(target_), "old");
}

TEST_F(AtomicFileTest, ATargetThatIsAFolderIsReportedAndLeavesNothing) {
    std::filesystem::create_directory(target_);
    EXPECT_THROW(writeAtomically(target_, "new"), filesystem_error);
    EXPECT_TRUE(std::filesystem::is_directory(target_));
    EXPECT_THAT(folder_.names(), ElementsAre("library.json"));
}

TEST_F(AtomicFileTest, APipeOrDeviceIsNotReplaced) {
    ASSERT_EQ(::mkfifo(target_.c_str(), 0600), 0);
    EXPECT_THROW(AtomicFile{target_}, filesystem_error);
    EXPECT_TRUE(std::filesystem::is_fifo(target_));
    EXPECT_THAT(folder_.names(), ElementsAre("library.json"));
}

TEST_F(AtomicFileTest, AFolderThatVanishesBeforeTheCommitIsReported) {
    const auto doomed = folder_.path() / "doomed";
    std::filesystem::create_directory(doomed);
    AtomicFile file(doomed / "file");
    file.write("new");
    std::filesystem::remove_all(doomed);
    EXPECT_THROW(file.commit(), filesystem_error);
}

TEST_F(AtomicFileTest, OtherCodeMayWriteToTheTemporaryPath) {
    AtomicFile file(target_);
    std::ofstream(file.temporaryPath()) << "by another";
    file.commit();
    EXPECT_EQ(readFile(target_), "by another");
}

TEST_F(AtomicFileTest, TheLongestNameOfAFileSystemIsWritten) {
    const auto target = folder_.path() / std::string(255, 'n');
    writeAtomically(target, "new");
    EXPECT_EQ(readFile(target), "new");
}

TEST_F(AtomicFileTest, TwoWritersOfOneTargetDoNotMix) {
    AtomicFile first(target_);
    AtomicFile second(target_);
    first.write("first");
    second.write("second");
    second.commit();
    first.commit();
    EXPECT_EQ(readFile(target_), "first");
}

TEST_F(AtomicFileTest, ReadingAMissingFileAFolderOrADeviceFails) {
    EXPECT_THROW((void)readFile(target_), filesystem_error);
    EXPECT_THROW((void)readFile(folder_.path()), filesystem_error);
    EXPECT_THROW((void)readFile("/dev/zero"), filesystem_error);
    ASSERT_EQ(::mkfifo(target_.c_str(), 0600), 0);
    EXPECT_THROW((void)readFile(target_), filesystem_error);
}

TEST_F(AtomicFileTest, ReadingGivesAllBytesOfALargeFile) {
    std::string content(200'000, '\0');
    for (std::size_t i = 0; i < content.size(); ++i) content[i] = static_cast<char>(i % 251);
    writeAtomically(target_, content);
    EXPECT_EQ(readFile(target_), content);
}

}  // namespace
}  // namespace elmworth
