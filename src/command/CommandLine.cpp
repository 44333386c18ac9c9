// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandLine.h"

#include <filesystem>
#include <new>
#include <sstream>

#include "command/CommandError.h"
#include "command/Completion.h"
#include "command/ProgramSyntax.h"
#include "platform/Text.h"

namespace elmworth {

namespace {

/// "-demo" has one dash, which the parser would read as five short options.
bool takeDemoSwitch(std::vector<std::string>& arguments) {
    return std::erase(arguments, "-demo") > 0;
}

std::string withoutTrailingBreaks(std::string text) {
    while (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
}

CommandResult answerOf(const CLI::App& program, const CLI::ParseError& error) {
    std::ostringstream output;
    std::ostringstream errors;
    const int status = program.exit(error, output, errors);
    return {output.str(), errors.str(), status == 0 ? 0 : 2};
}

std::string describe(const std::filesystem::filesystem_error& error) {
    const std::string reason = error.code().message();
    return error.path1().empty() ? reason : error.path1().string() + ": " + reason;
}

CommandResult failure(const std::string& message, int status) {
    return {{}, oneLine(withoutTrailingBreaks(message)) + '\n', status};
}

/// What cannot be read as text could neither be stored nor shown as it was meant.
std::optional<CommandResult> refuseOtherEncodings(const std::vector<std::string>& arguments) {
    for (const auto& argument : arguments) {
        const std::string valid = validUTF8(argument);
        if (valid != argument) return failure("“" + valid + "” is no text in UTF-8.", 2);
    }
    return std::nullopt;
}

std::string describe(const StoreError& error) {
    switch (error.code()) {
        case StoreError::Code::io:
            return std::string("The library can't be read or written: ") + error.what() + '.';
        case StoreError::Code::corrupt:
            return std::string("The library is damaged: ") + error.what() + '.';
        default:
            return error.what();
    }
}

constexpr const char* noMemory = "There is not enough memory for this.";

/// What `work` gives, or the failure that it ends with. Throws std::bad_alloc.
CommandResult withFailuresTold(const std::function<CommandResult()>& work) {
    try {
        return work();
    } catch (const CommandError& error) {
        return failure(error.what(), static_cast<int>(error.kind()));
    } catch (const std::filesystem::filesystem_error& error) {
        return failedCommand(describe(error));
    } catch (const StoreError& error) {
        return failedCommand(describe(error));
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        // The sentences of BuildError and RenderError are made for people.
        return failedCommand(error.what());
    }
}

}  // namespace

CommandResult failedCommand(const std::string& message) {
    return failure(message, 1);
}

CommandLine parseCommandLine(const std::vector<std::string>& givenArguments) {
    auto arguments = givenArguments;
    CommandLine commandLine;
    commandLine.isDemo = takeDemoSwitch(arguments);
    commandLine.answer = refuseOtherEncodings(arguments);
    if (commandLine.answer) return commandLine;

    if (!arguments.empty() && arguments.front() == completionRequest) {
        completeCommandLine({arguments.begin() + 1, arguments.end()}, commandLine);
        return commandLine;
    }

    ProgramSyntax syntax(arguments);
    try {
        // CLI11 takes the arguments from the back.
        syntax.program().parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::ParseError& error) {
        commandLine.answer = answerOf(syntax.program(), error);
        return commandLine;
    }
    const auto& given = syntax.given();
    commandLine.needsPainter = given.drawing == Drawing::drawsPages;
    commandLine.opens = given.opens;
    commandLine.readsStandardInput = given.readsStandardInput;
    commandLine.countsPages = given.drawing == Drawing::countsPages;
    if (given.fileAction) {
        commandLine.fileAction = [action = given.fileAction, format = syntax.format()](
                                     FileCommandEnvironment& environment, CommandResult& result) {
            CommandOutput commandOutput{format, result.output, result.errors};
            return action(environment, commandOutput);
        };
    }
    if (given.action) {
        commandLine.action = [action = given.action, format = syntax.format()](
                                 CommandEnvironment& environment, CommandResult& result) {
            CommandOutput commandOutput{format, result.output, result.errors};
            action(environment, commandOutput);
        };
    }
    return commandLine;
}

CommandResult runCommand(const CommandLine& commandLine, CommandEnvironment& environment) {
    try {
        return withFailuresTold([&] {
            CommandResult result;
            // A command that fails rolls back, which must not reach what waits from an earlier
            // failed save: the running timer may be among it.
            if (environment.context.hasChanges()) environment.context.save();
            const auto& faults = environment.context.readFaults();
            const auto faultsBefore = faults.count();
            commandLine.action(environment, result);
            if (faults.count() != faultsBefore) result.errors += unreadableLibraryText() + '\n';
            return result;
        });
    } catch (const std::bad_alloc&) {
        environment.context.rollback();
        return failedCommand(noMemory);
    }
}

CommandResult runFileCommand(const CommandLine& commandLine, FileCommandEnvironment& environment) {
    try {
        return withFailuresTold([&] {
            CommandResult result;
            result.exitStatus = commandLine.fileAction(environment, result);
            return result;
        });
    } catch (const std::bad_alloc&) {
        return failedCommand(noMemory);
    }
}

}  // namespace elmworth
