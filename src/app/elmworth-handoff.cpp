// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The program "elmworth-handoff": what "elmworth" becomes while somebody else has the library. It
// hands the command to the running application, or waits for another command to end.

#include <QCoreApplication>
#include <string>
#include <vector>

#include "app/CommandHandOff.h"
#include "app/TerminalCommand.h"

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const auto commandLine = elmworth::parseCommandLine(arguments);
    if (commandLine.answer) return elmworth::printResult(*commandLine.answer);
    if (!commandLine.action) {
        return elmworth::printResult(elmworth::failedCommand("There is no command to carry out."));
    }
    return elmworth::finishTerminalCommand(commandLine, arguments, {nullptr, &elmworth::handOff});
}
