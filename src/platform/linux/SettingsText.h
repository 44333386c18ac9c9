// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <map>
#include <string>
#include <string_view>
#include <variant>

namespace elmworth {

/// Bytes that need be no text.
struct SettingsBytes {
    std::string bytes;
    bool operator==(const SettingsBytes&) const = default;
};

/// What somebody else wrote that is neither text nor bytes, such as a list, as it stands.
struct SettingsOther {
    std::string spelling;
    bool operator==(const SettingsOther&) const = default;
};

using SettingsValue = std::variant<std::string, SettingsBytes, SettingsOther>;

/// By key, as the file spells it; those of a section other than "General" as "section/key".
using SettingsValues = std::map<std::string, SettingsValue, std::less<>>;

/// What a settings file holds.
struct SettingsText {
    SettingsValues values;
    bool isSound = true;  ///< false when something in the text cannot be read
};

/// Reads the text of a settings file, in the INI format of Qt's QSettings: UTF-8, ";" before a
/// comment, values quoted where they need it, "\n", "\"" and "\x1f" in them, and "@ByteArray(…)"
/// round bytes.
[[nodiscard]] SettingsText parseSettings(std::string_view given);

/// The text of a settings file that holds `values`, which QSettings reads alike.
[[nodiscard]] std::string formatSettings(const SettingsValues& values);

}  // namespace elmworth
