// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

#include "command/CommandLine.h"

namespace elmworth {

/// Asks the running application for an action of Activation's that opens something, and starts one
/// when none answers; a demo is always started. Ends when it is open.
[[nodiscard]] CommandResult openInApplication(const std::string& action, bool isDemo);

/// The application's argument for beginning with `action`, such as "--panel".
[[nodiscard]] inline std::string openingSwitch(const std::string& action) {
    return "--" + action;
}

}  // namespace elmworth
