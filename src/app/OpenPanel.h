// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "command/CommandLine.h"

namespace elmworth {

/// Opens the panel of the running application, and starts one when none answers; a demo is always
/// started. Ends when the panel is open.
[[nodiscard]] CommandResult openPanel(bool isDemo);

/// The application's argument for beginning with its panel.
inline constexpr const char* panelSwitch = "--panel";

}  // namespace elmworth
