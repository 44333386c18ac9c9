// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/Settings.h"

namespace elmworth {

/// A setting of how the program looks and behaves, as the settings window and commands know it.
struct Preference {
    std::string_view key;   ///< in the settings file and on the command line
    std::string_view help;  ///< what it is for, as commands tell
    /// The texts that it may be, of which the first is the default; empty for a number.
    std::span<const std::string_view> choices;
    std::int64_t highest = 0;  ///< of a number that people set, which is at least 0, and 0 at first

    [[nodiscard]] bool isNumber() const noexcept { return choices.empty(); }
    /// Whether it is "false" or "true".
    [[nodiscard]] bool isFlag() const noexcept { return !isNumber() && choices.front() == "false"; }
};

namespace preferences {

extern const Preference appearance;        ///< see AppearanceSetting
extern const Preference trayStyle;         ///< see TrayLabelStyle
extern const Preference weeklyGoal;        ///< in hours; 0 for none
extern const Preference automaticUpdates;  ///< see Updater

/// All of them, in the order in which the settings window shows them.
[[nodiscard]] std::span<const Preference* const> all();

}  // namespace preferences

/// The value in force: an unknown text counts as the default, a number below 0 as 0.
[[nodiscard]] std::string preferenceText(const Settings& settings, const Preference& preference);
[[nodiscard]] std::int64_t preferenceNumber(const Settings& settings, const Preference& preference);

/// Sets it to what `text` says. Throws Refused, with nothing changed, for a text that it can't be,
/// and where the settings file can't be written.
void setPreference(Settings& settings, const Preference& preference, std::string_view text);

/// "The settings file can't be written, …", for whatever was to be kept there.
[[nodiscard]] std::string settingsNotWrittenText();

}  // namespace elmworth
