// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/ColorScheme.h"
#include "platform/Settings.h"

namespace elmworth {

/// Keeps the look of all windows in step with the setting "appearance" and with what the
/// desktop prefers, as long as it lives.
class LiveAppearance {
 public:
    LiveAppearance(Settings& defaults, ColorScheme& desktop);
    LiveAppearance(const LiveAppearance&) = delete;
    LiveAppearance& operator=(const LiveAppearance&) = delete;

 private:
    void takeSetting();
    void takePreferences();

    Settings& defaults_;
    ColorScheme& desktop_;
    Settings::Observation defaultsObservation_;
    ColorScheme::Observation desktopObservation_;
};

}  // namespace elmworth
