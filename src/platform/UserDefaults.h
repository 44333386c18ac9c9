// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace elmworth {

/// The user's settings: named values in one INI file, each read live.
///
/// A value is kept in memory as soon as it is set; the file is replaced atomically at each change.
/// A file that cannot be written keeps its old content and the change lives until the process ends;
/// `lastWriteFailed` tells. Keys are lowerCamelCase names.
class UserDefaults {
 public:
    /// The settings in `file`. A file that is missing or unreadable holds no values.
    explicit UserDefaults(std::filesystem::path file);
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;
    ~UserDefaults();

    /// The settings of the user: "Elmworth.ini" in `settingsFolder()`.
    [[nodiscard]] static std::filesystem::path standardFile();

    /// The file of a suite, a set of settings of its own: "{name}.ini" in `settingsFolder()`.
    [[nodiscard]] static std::filesystem::path suiteFile(std::string_view name);

    /// Absent when the key is missing or its value does not read as that type.
    [[nodiscard]] std::optional<std::string> string(std::string_view key) const;
    [[nodiscard]] std::optional<std::int64_t> integer(std::string_view key) const;
    [[nodiscard]] std::optional<bool> boolean(std::string_view key) const;
    /// Raw bytes.
    [[nodiscard]] std::optional<std::string> data(std::string_view key) const;

    /// Setting a value equal to the present one writes nothing and tells nobody.
    void setString(std::string_view key, std::string_view value);
    void setInteger(std::string_view key, std::int64_t value);
    void setBoolean(std::string_view key, bool value);
    void setData(std::string_view key, std::string_view bytes);
    void remove(std::string_view key);

    /// Removes all keys and the file.
    void removeAll();

    [[nodiscard]] bool lastWriteFailed() const noexcept;

    /// Calls `changed` with the key after each change until the returned handle dies.
    using Observation = std::shared_ptr<void>;
    [[nodiscard]] Observation observe(std::function<void(std::string_view key)> changed);

 private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace elmworth
