// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "support/RawDatabase.h"

namespace elmworth::test {

/// A closed library as one file without a log, for damage to be done to its pages.
class DamagedPages {
 public:
    explicit DamagedPages(std::filesystem::path file) : file_(std::move(file)) {
        RawDatabase raw(file_);
        raw.run("PRAGMA journal_mode = DELETE");
        pageSize_ = std::stoul(raw.rows("PRAGMA page_size").front());
    }

    [[nodiscard]] std::size_t count() const {
        return std::filesystem::file_size(file_) / pageSize_;
    }
    [[nodiscard]] std::size_t pageSize() const noexcept { return pageSize_; }

    /// The pages of the table or index `name`.
    [[nodiscard]] std::vector<std::size_t> of(const std::string& name) const {
        RawDatabase raw(file_);
        std::vector<std::size_t> pages;
        for (const auto& page :
             raw.rows("SELECT pageno FROM dbstat WHERE name = '" + name + "' ORDER BY path"))
            pages.push_back(std::stoul(page));
        return pages;
    }

    /// Makes the disk give other bytes back for the page `number` than it was given.
    void overwrite(std::size_t number) const {
        write((number - 1) * pageSize_, std::string(pageSize_, '\xA5'));
    }
    void write(std::size_t place, const std::string& bytes) const {
        std::fstream file(file_, std::ios::binary | std::ios::in | std::ios::out);
        file.seekp(static_cast<std::streamoff>(place));
        file << bytes;
    }

 private:
    std::filesystem::path file_;
    std::size_t pageSize_ = 0;
};

}  // namespace elmworth::test
