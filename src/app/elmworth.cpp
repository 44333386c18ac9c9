// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The command "elmworth": carries out commands, and starts the application when there is none.

#include <string>
#include <vector>

#include "app/DisplayVariables.h"
#include "app/OpenInApplication.h"
#include "app/SiblingProgram.h"
#include "app/StandardStreams.h"
#include "app/TerminalCommand.h"

namespace {

int startApplication(const std::vector<std::string>& arguments) {
    if (!elmworth::hasDisplay()) {
        return elmworth::printResult(elmworth::failedCommand(elmworth::noDisplay));
    }
    return elmworth::execSibling("elmworth-app", arguments);
}

}  // namespace

int main(int argc, char** argv) {
    elmworth::reserveStandardStreams();
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const auto commandLine = elmworth::parseCommandLine(arguments);
    if (commandLine.answer) return elmworth::printResult(*commandLine.answer);
    if (!commandLine.opens.empty()) {
        return elmworth::printResult(
            elmworth::openInApplication(commandLine.opens, commandLine.isDemo));
    }
    if (!commandLine.isCommand()) return startApplication(arguments);
    return elmworth::finishTerminalCommand(commandLine, arguments, nullptr);
}
