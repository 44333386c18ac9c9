// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <vector>

#include "command/CommandLine.h"

namespace elmworth {

/// The names under which the running application answers on the session bus.
namespace bus {
inline constexpr const char* service = "org.elmworth.Elmworth";
inline constexpr const char* object = "/org/elmworth/Elmworth";
inline constexpr const char* commandInterface = "org.elmworth.Commands";
}  // namespace bus

/// A command that is handed over: relative paths are meant from `workingFolder`, dates read as in
/// `locale` and `zone`, amounts as in `moneyLocale`. The descriptors are those of CommandCaller.
struct HandOffRequest {
    std::vector<std::string> arguments;
    std::string workingFolder;
    std::string locale;
    std::string moneyLocale;
    std::string zone;
    int terminal;
    int lifeline;
    int standardInput;
    int library;  ///< its lock file, open for writing
    unsigned umask;
};

// What the module elmworth-session-bus.so offers. False when no application answers.
using HandOffFunction = bool(const HandOffRequest& request, CommandResult& result);
using ActivateFunction = bool(const char* action);  // empty: none, just come to the front

}  // namespace elmworth

extern "C" {
elmworth::HandOffFunction elmworthHandOff;
elmworth::ActivateFunction elmworthActivate;
}
