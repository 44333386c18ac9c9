// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace elmworth {

/// The bytes of a regular file, piece by piece. Throws std::filesystem::filesystem_error, also for
/// folders and devices.
class FileSource {
 public:
    explicit FileSource(const std::filesystem::path& file);

    /// The file behind `descriptor`, from where it stands; errors call it `name`.
    FileSource(int descriptor, std::string_view name);
    FileSource(const FileSource&) = delete;
    FileSource& operator=(const FileSource&) = delete;
    ~FileSource();

    /// The next piece, good until the next call; empty at the end.
    [[nodiscard]] std::string_view nextPiece();

    /// All that is left of the file.
    [[nodiscard]] std::string readAll();

    /// The bytes that were handed out, and the bytes of the whole file when it was opened.
    [[nodiscard]] std::size_t bytesRead() const noexcept { return bytesRead_; }
    [[nodiscard]] std::size_t size() const noexcept { return size_; }

 private:
    void checkFile();
    [[noreturn]] void fail(int error);

    std::filesystem::path file_;
    int descriptor_ = -1;
    std::size_t size_ = 0;
    std::size_t bytesRead_ = 0;
    std::array<char, 1 << 16> buffer_{};
};

}  // namespace elmworth
