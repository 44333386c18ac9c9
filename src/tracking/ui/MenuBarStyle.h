// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>

namespace elmworth {

/// What stands beside the menu bar item's image while a timer runs. The user default "menuBarStyle"
/// holds the name of the case.
enum class MenuBarStyle { time, timeAndProject, icon };

/// The style of a stored text. Any text but the cases' names means `time`.
[[nodiscard]] MenuBarStyle menuBarStyle(std::string_view raw);

/// The text to store.
[[nodiscard]] std::string_view rawValue(MenuBarStyle style);

}  // namespace elmworth
