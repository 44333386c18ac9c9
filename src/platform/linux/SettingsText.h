// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QVariantMap>
#include <filesystem>
#include <string>
#include <string_view>

namespace elmworth {

/// What a settings file holds.
struct SettingsText {
    QVariantMap values;   ///< by key; those in sections as "section/key"
    bool isSound = true;  ///< false when something in the text cannot be read
};

/// Reads the text of a settings file (INI in UTF-8). Throws std::system_error.
[[nodiscard]] SettingsText parseSettings(std::string_view text);

/// The text of a settings file that holds `values`. Works in a file beside `target` for a moment.
/// Throws std::system_error, also when the text does not hold all of them, as on a full disk.
[[nodiscard]] std::string formatSettings(const QVariantMap& values,
                                         const std::filesystem::path& target);

}  // namespace elmworth
