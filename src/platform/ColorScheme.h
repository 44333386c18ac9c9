// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>
#include <optional>

namespace elmworth {

/// How the desktop wants its programs to look.
class ColorScheme {
 public:
    struct Preferences {
        std::optional<bool> isDark;  ///< absent when the desktop doesn't say
        bool reducedMotion = false;  ///< things should not move about

        friend bool operator==(const Preferences&, const Preferences&) = default;
    };

    ColorScheme() = default;
    ColorScheme(const ColorScheme&) = delete;
    ColorScheme& operator=(const ColorScheme&) = delete;
    virtual ~ColorScheme() = default;

    [[nodiscard]] virtual Preferences preferences() const = 0;

    /// Calls `changed` after each change of the preferences until the returned handle dies.
    using Observation = std::shared_ptr<void>;
    [[nodiscard]] virtual Observation observe(std::function<void()> changed) = 0;
};

}  // namespace elmworth
