// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The command "elmworth": carries out commands, and starts the application when there is none.

#include <unistd.h>

#include <QCoreApplication>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

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

/// Becomes the application, which stands beside this program. Returns only on failure.
int becomeApplication(const std::vector<std::string>& arguments) {
    std::error_code error;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", error);
    const auto application = self.parent_path() / "elmworth-app";
    std::vector<std::string> words{application.string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (auto& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    ::execv(application.c_str(), pointers.data());
    std::fprintf(stderr, "%s can't be started: %s.\n", application.c_str(), std::strerror(errno));
    return 1;
}

int startApplication(const std::vector<std::string>& arguments) {
    if (!hasDisplay()) {
        std::fputs(
            "There is no display to open a window on. The commands work without one: "
            "elmworth --help\n",
            stderr);
        return 1;
    }
    return becomeApplication(arguments);
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const auto commandLine = elmworth::parseCommandLine(arguments);
    if (commandLine.answer) return elmworth::printResult(*commandLine.answer);
    if (!commandLine.action) return startApplication(arguments);

    const QCoreApplication application(argc, argv);
    const auto result = elmworth::runTerminalCommand(commandLine, arguments, nullptr);
    if (result) return elmworth::printResult(*result);

    std::vector<std::string> handedOn{"--command"};
    handedOn.insert(handedOn.end(), arguments.begin(), arguments.end());
    return becomeApplication(handedOn);
}
