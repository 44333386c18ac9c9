// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace elmworth::test {

/// A fresh folder that is deleted with all it holds.
class TemporaryFolder {
 public:
    TemporaryFolder() {
        std::string name = std::filesystem::temp_directory_path() / "elmworth-test-XXXXXX";
        if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error(name);
        path_ = name;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }

    /// The names of everything in it, hidden files too.
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            found.push_back(entry.path().filename());
        return found;
    }

 private:
    std::filesystem::path path_;
};

}  // namespace elmworth::test
