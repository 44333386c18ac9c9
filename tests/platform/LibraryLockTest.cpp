// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/LibraryLock.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "support/Rows.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

/// A library whose lock is taken, and another.
class LibraryLockTest : public testing::Test {
 protected:
    LibraryLockTest() {
        EXPECT_TRUE(lock_.tryAcquire());
        EXPECT_TRUE(otherLock_.tryAcquire());
    }
    [[nodiscard]] bool isShownBy(const char* file, int flags) const {
        const int descriptor = ::open((folder_.path() / file).c_str(), flags | O_CLOEXEC);
        const bool isShown = isWritableLockFile(descriptor, folder_.path());
        if (descriptor >= 0) ::close(descriptor);
        return isShown;
    }

    test::TemporaryFolder folder_;
    test::TemporaryFolder other_;
    LibraryLock lock_{folder_.path()};
    LibraryLock otherLock_{other_.path()};
};

TEST_F(LibraryLockTest, isTakenOnce) {
    LibraryLock second(folder_.path());
    EXPECT_FALSE(second.tryAcquire());
    lock_.release();
    EXPECT_TRUE(second.tryAcquire());
}

TEST_F(LibraryLockTest, itsFileOpenForWritingShowsThatOneMayWriteThere) {
    const int descriptor = openLockFile(folder_.path());
    EXPECT_TRUE(isWritableLockFile(descriptor, folder_.path()));
    EXPECT_FALSE(isWritableLockFile(descriptor, other_.path()));
    ::close(descriptor);
    EXPECT_TRUE(isShownBy("library.lock", O_RDWR));
    EXPECT_TRUE(isShownBy("library.lock", O_WRONLY));
}

TEST_F(LibraryLockTest, whoMayOnlyReadShowsNothing) {
    EXPECT_FALSE(isShownBy("library.lock", O_RDONLY));
    EXPECT_FALSE(isShownBy("library.lock", O_PATH));
    EXPECT_FALSE(isShownBy("/dev/null", O_RDWR));
    EXPECT_FALSE(isWritableLockFile(-1, folder_.path()));
}

TEST_F(LibraryLockTest, openingItsFileLeavesTheLockAlone) {
    const int descriptor = openLockFile(folder_.path());
    LibraryLock second(folder_.path());
    EXPECT_FALSE(second.tryAcquire());
    ::close(descriptor);
    EXPECT_FALSE(second.tryAcquire());
}

}  // namespace
}  // namespace elmworth
