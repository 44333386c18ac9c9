// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
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

/// What the running application answers to a command, however long it takes. Absent when none
/// answers, and when a text of the request is not UTF-8, which the bus doesn't carry.
[[nodiscard]] std::optional<CommandResult> runOverBus(const HandOffRequest& request);

/// Asks the running application to come to the front, or to carry out an action of Activation's.
/// False when none answers.
[[nodiscard]] bool activateRunningApplication(const std::string& action = {});

}  // namespace elmworth
