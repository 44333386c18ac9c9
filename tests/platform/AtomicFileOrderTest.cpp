// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a power cut leaves depends on the order of the calls that bring a file to the disk, which
// nothing else shows.

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <string>
#include <vector>

#include "platform/AtomicFile.h"
#include "support/TemporaryFolder.h"

namespace {

std::vector<std::string> calls;
std::string failing;  ///< the call that fails
int error = 0;        ///< with this error

int noted(const std::string& call, long result) {
    calls.push_back(call);
    if (call != failing) return static_cast<int>(result);
    errno = error;
    return -1;
}

}  // namespace

// In the place of the C library's.

int fsync(int descriptor) {
    struct stat status {};
    const bool isFolder = ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
    return noted(isFolder ? "sync the folder" : "sync the file", ::syscall(SYS_fsync, descriptor));
}

int rename(const char* from, const char* to) noexcept {
    return noted("rename", ::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0U));
}

namespace elmworth {
namespace {

using std::filesystem::filesystem_error;
using testing::ElementsAre;

class AtomicFileOrder : public testing::Test {
 protected:
    AtomicFileOrder() {
        writeAtomically(target_, "old");
        calls.clear();
    }
    ~AtomicFileOrder() override { failing.clear(); }

    test::TemporaryFolder folder_;
    std::filesystem::path target_ = folder_.path() / "library.json";
};

TEST_F(AtomicFileOrder, theContentIsOnTheDiskBeforeItsNameIsAndThatWhenTheWriteReturns) {
    writeAtomically(target_, "new");
    EXPECT_THAT(calls, ElementsAre("sync the file", "rename", "sync the folder"));
}

TEST_F(AtomicFileOrder, aContentThatDoesNotReachTheDiskTakesNoName) {
    failing = "sync the file";
    error = EIO;
    EXPECT_THROW(writeAtomically(target_, "new"), filesystem_error);
    EXPECT_THAT(calls, ElementsAre("sync the file"));
    EXPECT_EQ(readFile(target_), "old");
    EXPECT_THAT(folder_.names(), ElementsAre("library.json"));
}

TEST_F(AtomicFileOrder, aNameThatDoesNotReachTheDiskIsToldOf) {
    failing = "sync the folder";
    error = EIO;
    EXPECT_THROW(writeAtomically(target_, "new"), filesystem_error);
}

TEST_F(AtomicFileOrder, aFileSystemThatSyncsNoFoldersTakesFiles) {
    failing = "sync the folder";
    error = EINVAL;
    EXPECT_NO_THROW(writeAtomically(target_, "new"));
    EXPECT_EQ(readFile(target_), "new");
}

}  // namespace
}  // namespace elmworth
