// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/LibraryLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/StandardFolders.h"

namespace elmworth {

namespace {

std::filesystem::path lockFile(const std::filesystem::path& folder) {
    return folder / "library.lock";
}

}  // namespace

LibraryLock::LibraryLock(std::filesystem::path folder) : folder_(std::move(folder)) {}

LibraryLock::~LibraryLock() {
    release();
}

bool LibraryLock::tryAcquire() {
    const auto file = lockFile(createPrivateFolder(folder_));
    if (descriptor_ < 0) {
        descriptor_ = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (descriptor_ < 0) {
            throw std::filesystem::filesystem_error(
                "cannot lock the library", file, std::error_code(errno, std::generic_category()));
        }
    }
    while (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
        if (errno == EINTR) continue;
        return false;
    }
    return true;
}

void LibraryLock::release() noexcept {
    if (descriptor_ >= 0) ::close(descriptor_);
    descriptor_ = -1;
}

int openLockFile(const std::filesystem::path& folder) noexcept {
    return ::open(lockFile(folder).c_str(), O_RDWR | O_CLOEXEC);
}

bool isWritableLockFile(int descriptor, const std::filesystem::path& folder) noexcept {
    struct stat given {};
    struct stat own {};
    const int flags = ::fcntl(descriptor, F_GETFL);
    const bool canWrite = flags >= 0 && (flags & O_PATH) == 0 && (flags & O_ACCMODE) != O_RDONLY;
    return canWrite && ::fstat(descriptor, &given) == 0 &&
           ::stat(lockFile(folder).c_str(), &own) == 0 && given.st_dev == own.st_dev &&
           given.st_ino == own.st_ino;
}

}  // namespace elmworth
