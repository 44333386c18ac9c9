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
/// A change is written at once, over what the file holds by then, and replaces it atomically; all
/// that somebody else has written stays. Where it cannot be written, the file keeps its old
/// content, the change lives in memory and goes into the file with a later one; `lastWriteFailed`
/// tells. A file that is unreadable or damaged is kept beside the new one under a dated name
/// ("Elmworth.ini.damaged-2026-03-01T09-30-00"), and a line in the system log says so. Keys are
/// lowerCamelCase names.
class Settings {
 public:
    /// The settings in `file`. A file that is missing or unreadable holds no values, a damaged one
    /// those that can be read. `inMemory()` stands for no file: nothing is read, and what is set
    /// lasts as long as this object.
    explicit Settings(std::filesystem::path file);
    Settings(const Settings&) = delete;
    Settings& operator=(const Settings&) = delete;
    ~Settings();

    /// The settings of the user: "Elmworth.ini" in `settingsFolder()`.
    [[nodiscard]] static std::filesystem::path standardFile();

    [[nodiscard]] static std::filesystem::path inMemory() { return {}; }

    [[nodiscard]] const std::filesystem::path& file() const noexcept;

    [[nodiscard]] bool contains(std::string_view key) const;

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
    /// `obsoleteKey` is removed in the same write, unless it is empty.
    void setData(std::string_view key, std::string_view bytes, std::string_view obsoleteKey = {});
    void remove(std::string_view key);

    /// Takes over what somebody else has written to the file. One that is missing, empty,
    /// unreadable or damaged leaves all values as they are.
    void reload();

    /// Lets the next write keep what the file holds under a dated name, for a value in it that
    /// cannot be read.
    void keepFile();

    [[nodiscard]] bool lastWriteFailed() const noexcept;

    /// Calls `changed` with the key after each change, whoever made it, until the returned handle
    /// dies.
    using Observation = std::shared_ptr<void>;
    [[nodiscard]] Observation observe(std::function<void(std::string_view key)> changed);

 private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace elmworth
