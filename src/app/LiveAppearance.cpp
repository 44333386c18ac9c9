// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/LiveAppearance.h"

#include "theme/AppAppearance.h"

namespace elmworth {

namespace {

constexpr std::string_view appearanceKey = "appearance";

}  // namespace

LiveAppearance::LiveAppearance(Settings& defaults, ColorScheme& desktop)
    : defaults_(defaults), desktop_(desktop) {
    defaultsObservation_ = defaults_.observe([this](std::string_view key) {
        if (key == appearanceKey) takeSetting();
    });
    desktopObservation_ = desktop_.observe([this] { takePreferences(); });
    takeSetting();
    takePreferences();
}

void LiveAppearance::takeSetting() {
    AppAppearance::instance().setSetting(
        appearanceSetting(defaults_.string(appearanceKey).value_or("")));
}

void LiveAppearance::takePreferences() {
    const auto preferences = desktop_.preferences();
    AppAppearance::instance().setDesktopDark(preferences.isDark);
    AppAppearance::instance().setReducedMotion(preferences.reducedMotion);
}

}  // namespace elmworth
