// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandLine.h"

#include <CLI/CLI.hpp>
#include <array>
#include <filesystem>
#include <new>
#include <sstream>

#include "command/Choice.h"
#include "command/CommandError.h"
#include "command/CommandSyntax.h"
#include "platform/Text.h"

namespace elmworth {

namespace {

struct CommandEntry {
    const char* name;
    void (*add)(CommandSyntax&);
};

constexpr std::array commands{
    CommandEntry{"status", &addStatusCommand},   CommandEntry{"start", &addStartCommand},
    CommandEntry{"stop", &addStopCommand},       CommandEntry{"continue", &addContinueCommand},
    CommandEntry{"panel", &addPanelCommand},     CommandEntry{"client", &addClientCommand},
    CommandEntry{"project", &addProjectCommand}, CommandEntry{"log", &addLogCommand},
    CommandEntry{"invoice", &addInvoiceCommand}, CommandEntry{"profile", &addProfileCommand},
    CommandEntry{"report", &addReportCommand},   CommandEntry{"export", &addExportCommand},
    CommandEntry{"import", &addImportCommand},   CommandEntry{"backup", &addBackupCommand},
    CommandEntry{"restore", &addRestoreCommand}, CommandEntry{"settings", &addSettingsCommand},
    CommandEntry{"check", &addCheckCommand},     CommandEntry{"recover", &addRecoverCommand},
};

/// A key binding must not wait for the syntax of commands that it does not use.
void addCommands(CommandSyntax& syntax, const std::vector<std::string>& arguments) {
    for (const auto& argument : arguments) {
        for (const auto& command : commands) {
            if (argument == command.name) return command.add(syntax);
        }
    }
    for (const auto& command : commands) command.add(syntax);
}

/// "-demo" has one dash, which the parser would read as five short options.
bool takeDemoSwitch(std::vector<std::string>& arguments) {
    return std::erase(arguments, "-demo") > 0;
}

std::string withoutTrailingBreaks(std::string text) {
    while (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
}

/// Names say what a positional is, and the usage line whether it may be left out.
class HelpFormatter final : public CLI::Formatter {
 public:
    HelpFormatter() {
        label("Positionals", "Arguments");
        label("SUBCOMMAND", "COMMAND");
    }

    std::string make_option_opts(const CLI::Option* option) const override {
        if (option->get_positional()) return {};
        const std::string type = option->get_type_name();
        return (type.empty() ? "" : " " + type) + (option->get_required() ? " (required)" : "");
    }
};

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

    CLI::App program{
        "Elmworth tracks time and turns it into invoices. Without a command it is the "
        "desktop application.",
        "elmworth"};
    program.set_version_flag("--version", "Elmworth " ELMWORTH_VERSION);
    program.require_subcommand(0, 1);
    program.fallthrough();
    program.formatter(std::make_shared<HelpFormatter>());
    auto format = std::make_shared<OutputFormat>(OutputFormat::text);
    addChoice(SubcommandSyntax(program), "--format", format,
              {{"text", OutputFormat::text}, {"json", OutputFormat::json}},
              "How results are printed: ")
        .typeName("FORMAT");
    // Commands take over the footer that stands when they are added.
    program.footer("With --format json the result is one JSON document.");
    CommandSyntax syntax{SubcommandSyntax(program)};
    addCommands(syntax, arguments);
    program.footer(
        "elmworth COMMAND --help tells how a command is used.\n"
        "-demo before a command works on a fresh demo library in memory.");

    try {
        // CLI11 takes the arguments from the back.
        program.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::ParseError& error) {
        commandLine.answer = answerOf(program, error);
        return commandLine;
    }
    commandLine.needsPainter = syntax.drawing == Drawing::drawsPages;
    commandLine.opensPanel = syntax.opensPanel;
    commandLine.readsStandardInput = syntax.readsStandardInput;
    commandLine.countsPages = syntax.drawing == Drawing::countsPages;
    if (syntax.fileAction) {
        commandLine.fileAction = [action = syntax.fileAction, format](
                                     FileCommandEnvironment& environment, CommandResult& result) {
            CommandOutput commandOutput{*format, result.output, result.errors};
            return action(environment, commandOutput);
        };
    }
    if (syntax.action) {
        commandLine.action = [action = syntax.action, format](CommandEnvironment& environment,
                                                              CommandResult& result) {
            CommandOutput commandOutput{*format, result.output, result.errors};
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
