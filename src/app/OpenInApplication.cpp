// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/OpenInApplication.h"

#include "app/DetachedStart.h"
#include "app/DisplayVariables.h"
#include "app/SessionBus.h"

namespace elmworth {

CommandResult openInApplication(const std::string& action, bool isDemo) {
    if (!isDemo && activateRunningApplication(action)) return {};
    if (!hasDisplay()) return failedCommand(noDisplay);
    std::vector<std::string> arguments{openingSwitch(action)};
    if (isDemo) arguments.emplace_back("-demo");
    return startDetached("elmworth-app", arguments);
}

}  // namespace elmworth
