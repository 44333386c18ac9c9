// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/OpenPanel.h"

#include "app/CommandHandOff.h"
#include "app/DetachedStart.h"
#include "app/DisplayVariables.h"

namespace elmworth {

CommandResult openPanel(bool isDemo) {
    if (!isDemo && activateRunningApplication("panel")) return {};
    if (!hasDisplay()) return failedCommand(noDisplay);
    std::vector<std::string> arguments{panelSwitch};
    if (isDemo) arguments.emplace_back("-demo");
    return startDetached("elmworth-app", arguments);
}

}  // namespace elmworth
