// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>

namespace elmworth::sqlite {

/// What a write-ahead log holds (sqlite.org/fileformat2.html#walformat).
struct LogFrames {
    std::size_t pageSize = 0;   ///< 0: this is no log, or an empty one
    std::size_t pageCount = 0;  ///< of the library at the last commit; 0 without one
    /// Where in the log the newest content of a page stands.
    std::unordered_map<std::uint32_t, std::size_t> pages;
    /// Commits behind a frame that is damaged. One may be what a power failure left of a commit
    /// that nobody was told of, and is not counted.
    std::size_t lostCommits = 0;
};

[[nodiscard]] LogFrames readLogFrames(std::string_view log);

/// The big-endian number at `offset`, which must be within `bytes`.
[[nodiscard]] inline std::uint32_t bigEndian(std::string_view bytes, std::size_t offset) {
    const auto at = [&](std::size_t i) {
        return std::uint32_t{static_cast<unsigned char>(bytes[offset + i])};
    };
    return (at(0) << 24) | (at(1) << 16) | (at(2) << 8) | at(3);
}

/// Whether SQLite has pages of `size` bytes.
[[nodiscard]] inline bool isPageSize(std::size_t size) noexcept {
    return size >= 512 && size <= 65536 && (size & (size - 1)) == 0;
}

}  // namespace elmworth::sqlite
