// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>

namespace elmworth {

/// Whether the windows are dark, bright, or as the rest of the desktop. The setting
/// "appearance" holds the raw value.
enum class AppearanceSetting { system, dark, light };

/// Any text that is not a raw value counts as `system`.
[[nodiscard]] constexpr AppearanceSetting appearanceSetting(std::string_view raw) noexcept {
    if (raw == "dark") return AppearanceSetting::dark;
    if (raw == "light") return AppearanceSetting::light;
    return AppearanceSetting::system;
}

/// The text that stands for `setting` in the settings.
[[nodiscard]] constexpr std::string_view rawValue(AppearanceSetting setting) noexcept {
    switch (setting) {
        case AppearanceSetting::dark:
            return "dark";
        case AppearanceSetting::light:
            return "light";
        case AppearanceSetting::system:
            break;
    }
    return "system";
}

}  // namespace elmworth
