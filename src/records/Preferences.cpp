// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/Preferences.h"

#include <algorithm>
#include <array>
#include <optional>

#include "platform/Text.h"
#include "records/FieldText.h"

namespace elmworth {

namespace {

constexpr std::array<std::string_view, 3> appearances{"system", "dark", "light"};
constexpr std::array<std::string_view, 2> noOrYes{"false", "true"};
constexpr std::array<std::string_view, 3> trayStyles{"time", "timeAndProject", "icon"};

/// The choice that `text` names, whatever its case; absent for none.
std::optional<std::string_view> choiceOf(const Preference& preference, std::string_view text) {
    const auto found =
        std::find_if(preference.choices.begin(), preference.choices.end(),
                     [&](auto choice) { return caseFolded(choice) == caseFolded(text); });
    return found == preference.choices.end() ? std::nullopt : std::optional(*found);
}

std::string chosen(const Preference& preference, std::string_view text) {
    if (const auto choice = choiceOf(preference, text)) return std::string(*choice);
    std::string choices;
    for (const auto choice : preference.choices) {
        choices += (choices.empty() ? "" : ", ") + std::string(choice);
    }
    throw Refused("“" + std::string(text) + "” is no value of " + std::string(preference.key) +
                  ". Choose one of: " + choices + ".");
}

}  // namespace

namespace preferences {

const Preference appearance{"appearance", "Whether windows are dark or light", appearances};
const Preference trayStyle{"menuBarStyle", "What the tray shows while a timer runs", trayStyles};
const Preference weeklyGoal{"weeklyGoalHours", "Hours to track in a week; 0 for no goal", {}, 80};
const Preference automaticUpdates{"installUpdatesAutomatically",
                                  "Whether newer releases are fetched and installed", noOrYes};

std::span<const Preference* const> all() {
    static constexpr std::array<const Preference*, 4> rows{&appearance, &trayStyle, &weeklyGoal,
                                                           &automaticUpdates};
    return rows;
}

}  // namespace preferences

std::string preferenceText(const Settings& settings, const Preference& preference) {
    if (preference.isNumber()) return std::to_string(preferenceNumber(settings, preference));
    const auto text = settings.string(preference.key).value_or("");
    const auto& choices = preference.choices;
    const bool isKnown = std::find(choices.begin(), choices.end(), text) != choices.end();
    return isKnown ? text : std::string(choices.front());
}

std::int64_t preferenceNumber(const Settings& settings, const Preference& preference) {
    return std::max<std::int64_t>(settings.integer(preference.key).value_or(0), 0);
}

void setPreference(Settings& settings, const Preference& preference, std::string_view text) {
    const std::string value =
        preference.isNumber()
            ? std::to_string(parseWholeNumber(text, preference.key, 0, preference.highest).value())
            : chosen(preference, text);
    const auto before = settings.string(preference.key);
    if (before == value) return;
    settings.setString(preference.key, value);
    if (!settings.lastWriteFailed()) return;
    before ? settings.setString(preference.key, *before) : settings.remove(preference.key);
    throw Refused(settingsNotWrittenText());
}

std::string settingsNotWrittenText() {
    return "The settings file can't be written, so the change was not kept.";
}

}  // namespace elmworth
