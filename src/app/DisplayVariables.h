// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <cstdlib>

namespace elmworth {

/// Whether the environment names a display. It may still be one that cannot be used.
[[nodiscard]] inline bool hasDisplay() {
    constexpr std::array variables{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    for (const char* name : variables) {
        const char* value = std::getenv(name);
        if (value && *value) return true;
    }
    return false;
}

inline constexpr const char* noDisplay =
    "There is no display to open a window on. The commands work without one: elmworth --help";

}  // namespace elmworth
