// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/ColorScheme.h"
#include "platform/Settings.h"

namespace elmworth {

/// Applies the setting "appearance" and the desktop's preference to all windows, now and whenever
/// one of them changes, for the lifetime of this object.
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
