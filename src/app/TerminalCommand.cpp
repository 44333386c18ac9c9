// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/TerminalCommand.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

#include "app/CommandHandOff.h"
#include "app/GatheredInput.h"
#include "app/LibraryServices.h"
#include "app/SiblingProgram.h"
#include "app/TerminalProgress.h"
#include "app/WorkingFolder.h"
#include "command/CommandError.h"
#include "platform/LibraryLock.h"
#include "platform/MoneyFormat.h"
#include "platform/StandardFolders.h"
#include "records/Logo.h"

namespace elmworth {

namespace {

using namespace std::chrono_literals;

constexpr auto longestWait = 5s;
constexpr auto betweenTries = 10ms;
constexpr const char* libraryInUse = "The library is in use by another Elmworth process.";

/// With a logo the pages of an invoice can only be counted by a process that can read pictures.
bool needsPainter(const CommandLine& commandLine) {
    std::error_code ignored;
    const bool mayHaveLogo = commandLine.countsPages && !commandLine.isDemo;
    return commandLine.needsPainter ||
           (mayHaveLogo && std::filesystem::exists(dataFolder() / "logo.png", ignored));
}

bool hasLibrary(const CommandLine& commandLine) {
    const auto file = LibraryOptions::standard(commandLine.isDemo).url;
    std::error_code ignored;
    return !file || std::filesystem::exists(*file, ignored);
}

CommandResult runOnOwnLibrary(const CommandLine& commandLine, const GatheredInput& input,
                              InvoicePainter* painter) {
    try {
        NoRunLoop runLoop;
        LibraryServices services(commandLine.isDemo, currentInstant, runLoop);
        TerminalProgress progress(STDERR_FILENO);
        CommandEnvironment environment{services.context(),
                                       services.history(),
                                       services.timer(),
                                       services.profiles(),
                                       services.clock(),
                                       Locale::current(),
                                       Calendar::current(),
                                       workingFolder(),
                                       painter,
                                       progress,
                                       FileAccess::forUmask(currentUmask()),
                                       input.descriptor(),
                                       currentMoneyLocale(),
                                       &services.loginItem()};
        return runCommand(commandLine, environment);
    } catch (const LibraryError& error) {
        return failedCommand(error.what());
    }
}

/// Needs neither the lock nor the library: it may be open elsewhere, or be one that can't be
/// opened.
CommandResult runOnLibraryFile(const CommandLine& commandLine) {
    if (commandLine.isDemo || isHostedRun())
        return failedCommand("A library in memory has no file.");
    TerminalProgress progress(STDERR_FILENO);
    FileCommandEnvironment environment{dataFolder() / "library.sqlite",
                                       dataFolder() / "Backups",
                                       Settings::standardFile(),
                                       workingFolder(),
                                       currentInstant,
                                       progress};
    return runFileCommand(commandLine, environment);
}

std::optional<CommandResult> runWithLibrary(const CommandLine& commandLine,
                                            const GatheredInput& input, InvoicePainter* painter) {
    if (!painter && needsPainter(commandLine)) return std::nullopt;
    return runOnOwnLibrary(commandLine, input, painter);
}

std::optional<CommandResult> runUnderLock(const CommandLine& commandLine,
                                          const std::vector<std::string>& arguments,
                                          const GatheredInput& input, InvoicePainter* painter) {
    LibraryLock lock(dataFolder());
    const auto deadline = std::chrono::steady_clock::now() + longestWait;
    while (true) {
        if (lock.tryAcquire()) return runWithLibrary(commandLine, input, painter);
        if (auto result = handOff(arguments, input)) return result;
        if (std::chrono::steady_clock::now() >= deadline) return failedCommand(libraryInUse);
        std::this_thread::sleep_for(betweenTries);
    }
}

std::optional<CommandResult> runWithInput(const CommandLine& commandLine,
                                          const std::vector<std::string>& arguments,
                                          const GatheredInput& input, InvoicePainter* painter) {
    try {
        if (commandLine.isDemo || isHostedRun()) return runWithLibrary(commandLine, input, painter);
        return runUnderLock(commandLine, arguments, input, painter);
    } catch (const std::filesystem::filesystem_error& error) {
        return failedCommand("Could not create ModelContainer: " + error.path1().string() + ": " +
                             error.code().message());
    }
}

}  // namespace

std::optional<CommandResult> runTerminalCommand(const CommandLine& commandLine,
                                                const std::vector<std::string>& arguments,
                                                InvoicePainter* painter) {
    try {
        if (commandLine.onlyLooks && !hasLibrary(commandLine)) return CommandResult();
        if (commandLine.fileAction) return runOnLibraryFile(commandLine);
        GatheredInput input;
        // Before the library is locked: another command may be the one that writes it.
        if (commandLine.readsStandardInput) input.gather(STDIN_FILENO);
        return runWithInput(commandLine, arguments, input, painter);
    } catch (const CommandError& error) {
        return failedCommand(error.what());
    }
}

int finishTerminalCommand(const CommandLine& commandLine, const std::vector<std::string>& arguments,
                          InvoicePainter* painter) {
    if (const auto result = runTerminalCommand(commandLine, arguments, painter)) {
        return printResult(*result);
    }
    std::vector<std::string> handedOn{"--command"};
    handedOn.insert(handedOn.end(), arguments.begin(), arguments.end());
    return execSibling("elmworth-app", handedOn);
}

int printResult(const CommandResult& result) {
    const auto& output = result.output;
    const bool written = std::fwrite(output.data(), 1, output.size(), stdout) == output.size();
    std::fwrite(result.errors.data(), 1, result.errors.size(), stderr);
    if ((!written || std::fflush(stdout) != 0) && result.exitStatus == 0) {
        std::fputs("The result could not be written to standard output.\n", stderr);
        return 1;
    }
    return result.exitStatus;
}

}  // namespace elmworth
