// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The command "elmworth": carries out commands, and starts the application when there is none.

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "app/SiblingProgram.h"
#include "app/StandardStreams.h"
#include "app/TerminalCommand.h"

namespace {

bool hasDisplay() {
    constexpr std::array displays{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};
    for (const char* name : displays) {
        const char* value = std::getenv(name);
        if (value && *value) return true;
    }
    return false;
}

int startApplication(const std::vector<std::string>& arguments) {
    if (!hasDisplay()) {
        std::fputs(
            "There is no display to open a window on. The commands work without one: "
            "elmworth --help\n",
            stderr);
        return 1;
    }
    return elmworth::becomeSibling("elmworth-app", arguments);
}

}  // namespace

int main(int argc, char** argv) {
    elmworth::reserveStandardStreams();
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const auto commandLine = elmworth::parseCommandLine(arguments);
    if (commandLine.answer) return elmworth::printResult(*commandLine.answer);
    if (!commandLine.action) return startApplication(arguments);
    return elmworth::finishTerminalCommand(commandLine, arguments, nullptr);
}
