// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <vector>

namespace elmworth {

/// Shows all components of the screens in all their states, until its window is closed; for those
/// who draw them. A "dark" or "light" among `arguments` says how it begins. Opens no library and
/// reads no settings. Returns the exit status of the process. Needs a QGuiApplication.
[[nodiscard]] int runGallery(const std::vector<std::string>& arguments);

}  // namespace elmworth
