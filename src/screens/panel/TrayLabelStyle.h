// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>

namespace elmworth {

/// What stands beside the tray item's image while a timer runs. The setting "menuBarStyle"
/// holds the name of the case.
enum class TrayLabelStyle { time, timeAndProject, icon };

/// The style of a stored text. Any text but the cases' names means `time`.
[[nodiscard]] TrayLabelStyle trayLabelStyle(std::string_view raw);

/// The text to store.
[[nodiscard]] std::string_view rawValue(TrayLabelStyle style);

}  // namespace elmworth
