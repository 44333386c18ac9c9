// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>
#include <string>

#include "command/CommandSyntax.h"
#include "command/TimeArgument.h"
#include "tracking/TimesheetFilter.h"

namespace elmworth {

/// The options that choose entries, which report and export share.
struct TimesheetArguments {
    PeriodArguments period;
    std::string client;
    std::string project;
    std::string search;
    bool unbilledOnly = false;

    /// Declares the options on `command`, which must not outlive this object.
    void addTo(SubcommandSyntax command);

    /// The filter that they mean; without a period this week. Throws CommandError.
    [[nodiscard]] TimesheetFilter filter(CommandEnvironment& environment) const;
};

}  // namespace elmworth
