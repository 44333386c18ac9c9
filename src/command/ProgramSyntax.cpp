// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/ProgramSyntax.h"

#include <algorithm>
#include <array>
#include <sstream>

#include "command/Choice.h"
#include "command/CommandDescription.h"

namespace elmworth {

namespace {

struct CommandEntry {
    const char* name;
    void (*add)(CommandSyntax&);
};

constexpr std::array commands{
    CommandEntry{"status", &addStatusCommand},
    CommandEntry{"start", &addStartCommand},
    CommandEntry{"stop", &addStopCommand},
    CommandEntry{"continue", &addContinueCommand},
    CommandEntry{"panel", &addPanelCommand},
    CommandEntry{"new-invoice", &addNewInvoiceCommand},
    CommandEntry{"client", &addClientCommand},
    CommandEntry{"project", &addProjectCommand},
    CommandEntry{"log", &addLogCommand},
    CommandEntry{"invoice", &addInvoiceCommand},
    CommandEntry{"profile", &addProfileCommand},
    CommandEntry{"report", &addReportCommand},
    CommandEntry{"export", &addExportCommand},
    CommandEntry{"import", &addImportCommand},
    CommandEntry{"backup", &addBackupCommand},
    CommandEntry{"restore", &addRestoreCommand},
    CommandEntry{"settings", &addSettingsCommand},
    CommandEntry{"check", &addCheckCommand},
    CommandEntry{"recover", &addRecoverCommand},
};

void addCommands(CommandSyntax& syntax, const std::vector<std::string>& arguments) {
    for (const auto& argument : arguments) {
        for (const auto& command : commands) {
            if (argument == command.name) return command.add(syntax);
        }
    }
    for (const auto& command : commands) command.add(syntax);
}

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

/// Names say what a positional is, and the usage line whether it may be left out.
class HelpFormatter final : public CLI::Formatter {
 public:
    HelpFormatter() {
        label("Positionals", "Arguments");
        label("SUBCOMMAND", "COMMAND");
    }

    std::string make_subcommand(const CLI::App* command) const override {
        std::ostringstream line;
        CLI::detail::format_help(line, command->get_name(), firstLine(command->get_description()),
                                 column_width_);
        return line.str();
    }

    std::string make_option_opts(const CLI::Option* option) const override {
        if (option->get_positional()) return {};
        const std::string type = option->get_type_name();
        return (type.empty() ? "" : " " + type) + (option->get_required() ? " (required)" : "");
    }
};

CommandDescription::Value describe(const CLI::Option& option, const ValueWords& words) {
    CommandDescription::Value value;
    const bool isPositional = option.get_positional();
    value.name = option.get_name(isPositional);
    // "-h,--help"
    value.name.erase(0, value.name.find_last_of(',') + 1);
    const bool isFlag = option.get_items_expected_max() == 0;
    if (!isFlag) value.kind = isPositional ? value.name : option.get_type_name();
    value.help = option.get_description();
    value.isRequired = option.get_required();
    if (const auto found = words.find(&option); found != words.end()) value.words = found->second;
    return value;
}

CommandDescription describe(const CLI::App& command, const ValueWords& words) {
    const auto help = command.get_description();
    CommandDescription description{command.get_name(), firstLine(help), {}, {}, false};
    if (description.help.size() < help.size())
        description.details = help.substr(description.help.size() + 1);
    description.needsSubcommand = command.get_require_subcommand_min() > 0;
    for (const auto* option : command.get_options())
        description.values.push_back(describe(*option, words));
    for (const auto* subcommand : command.get_subcommands([](const CLI::App*) { return true; }))
        description.commands.push_back(describe(*subcommand, words));
    return description;
}

}  // namespace

ProgramSyntax::ProgramSyntax(const std::vector<std::string>& arguments)
    : program_(
          "Elmworth tracks time and turns it into invoices. Without a command it is the "
          "desktop application.",
          "elmworth"),
      syntax_{SubcommandSyntax(program_, words_)},
      format_(std::make_shared<OutputFormat>(OutputFormat::text)) {
    program_.set_version_flag("--version", "Elmworth " ELMWORTH_VERSION);
    program_.require_subcommand(0, 1);
    program_.fallthrough();
    program_.formatter(std::make_shared<HelpFormatter>());
    addChoice(syntax_.program, "--format", format_,
              {{"text", OutputFormat::text}, {"json", OutputFormat::json}},
              "How results are printed: ")
        .typeName("FORMAT");
    // Commands take over the footer that stands when they are added.
    program_.footer("With --format json the result is one JSON document.");
    addCommands(syntax_, arguments);
    program_.footer(
        "elmworth COMMAND --help tells how a command is used.\n"
        "-demo before a command works on a fresh demo library in memory.");
}

ProgramSyntax::~ProgramSyntax() = default;

CommandDescription describeProgram() {
    ProgramSyntax syntax({});
    return describe(syntax.program(), syntax.words());
}

const CommandDescription* CommandDescription::command(std::string_view wanted) const {
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&](const auto& command) { return command.name == wanted; });
    return found == commands.end() ? nullptr : &*found;
}

const CommandDescription::Value* CommandDescription::option(std::string_view wanted) const {
    const auto found = std::find_if(values.begin(), values.end(), [&](const auto& value) {
        return !value.isPositional() && value.name == wanted;
    });
    return found == values.end() ? nullptr : &*found;
}

std::vector<const CommandDescription::Value*> CommandDescription::positionals() const {
    std::vector<const Value*> found;
    for (const auto& value : values) {
        if (value.isPositional()) found.push_back(&value);
    }
    return found;
}

}  // namespace elmworth
