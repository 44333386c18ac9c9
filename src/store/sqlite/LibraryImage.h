// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "store/sqlite/Database.h"

namespace elmworth::sqlite {

/// The pages of a library in memory, as of its last commit: the file with its log laid over it.
/// Reads and never writes, locks or makes a file, so that it may look at a library that is damaged,
/// lies on a full or read-only disk, or is open in another process.
class LibraryImage {
 public:
    /// Reads the library `file`. What the disk can't read is zeros. Throws
    /// std::filesystem::filesystem_error when the file can't be opened, and StoreError when it does
    /// not hold still.
    explicit LibraryImage(const std::filesystem::path& file);

    /// The library that `bytes` are, which has no log.
    explicit LibraryImage(std::string bytes);

    [[nodiscard]] std::size_t pageSize() const noexcept { return pageSize_; }
    /// How many pages there are; the last may be cut off.
    [[nodiscard]] std::size_t pageCount() const noexcept {
        return (bytes_.size() + pageSize_ - 1) / pageSize_;
    }
    /// The pages that the library should have by its own account, but does not.
    [[nodiscard]] std::size_t missingPages() const noexcept;
    /// The page `number`, counted from 1; shorter when it is cut off, empty when there is none.
    [[nodiscard]] std::string_view page(std::size_t number) const noexcept;
    /// The number that the head of the library holds at `offset`.
    [[nodiscard]] std::uint32_t headNumber(std::size_t offset) const noexcept;

    /// Bytes that the disk could not read.
    [[nodiscard]] std::size_t unreadableBytes() const noexcept { return unreadableBytes_; }
    /// Commits in the log behind a damaged place, which nobody can read any more.
    [[nodiscard]] std::size_t lostCommits() const noexcept { return lostCommits_; }

    /// Whether the head says that this is a library of this program.
    [[nodiscard]] bool isLibrary() const noexcept;
    [[nodiscard]] std::uint32_t version() const noexcept;

    /// A connection to the pages, which must outlive it. Nothing can be written. Throws StoreError.
    [[nodiscard]] Database open() const;

 private:
    void choosePageSize(std::string_view log);
    void layLogOver(std::string_view log);
    void leaveLogMode() noexcept;

    std::string bytes_;
    std::size_t pageSize_ = 4096;
    std::size_t unreadableBytes_ = 0;
    std::size_t lostCommits_ = 0;
};

/// The bytes of a file that holds all that `database`, a library in memory, holds.
[[nodiscard]] std::string serialized(const Database& database);

}  // namespace elmworth::sqlite
