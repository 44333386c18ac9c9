// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <filesystem>

namespace elmworth {

/// Says that this process is the only one that has a library open. A kernel lock (flock) on a file
/// beside it, which ends with the process, however that ends.
class LibraryLock {
 public:
    /// A lock on the file "library.lock" in `folder`, not taken yet.
    explicit LibraryLock(std::filesystem::path folder);
    LibraryLock(const LibraryLock&) = delete;
    LibraryLock& operator=(const LibraryLock&) = delete;
    ~LibraryLock();

    /// Takes the lock unless another process has it. Creates the folder when it is missing. Throws
    /// std::filesystem::filesystem_error when the file cannot be made.
    [[nodiscard]] bool tryAcquire();

    /// Gives the lock back.
    void release() noexcept;

 private:
    std::filesystem::path folder_;
    int descriptor_ = -1;
};

/// The lock file of `folder`, opened for writing: a process that has it open shows by it that it
/// may write there. Below zero when it can't be opened. Does nothing about the lock itself.
[[nodiscard]] int openLockFile(const std::filesystem::path& folder) noexcept;

/// Whether `descriptor` is the lock file of `folder`, open for writing.
[[nodiscard]] bool isWritableLockFile(int descriptor, const std::filesystem::path& folder) noexcept;

}  // namespace elmworth
