// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/LibraryLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/StandardFolders.h"

namespace elmworth {

LibraryLock::LibraryLock(std::filesystem::path folder) : folder_(std::move(folder)) {}

LibraryLock::~LibraryLock() {
    release();
}

bool LibraryLock::tryAcquire() {
    const auto file = createPrivateFolder(folder_) / "library.lock";
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

}  // namespace elmworth
