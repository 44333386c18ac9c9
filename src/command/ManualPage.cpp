// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/ManualPage.h"

#include <string_view>

namespace elmworth {

namespace {

constexpr std::string_view beginning =
    R"(.TH ELMWORTH 1 "" "Elmworth )" ELMWORTH_VERSION R"(" "User Commands"
.SH NAME
elmworth \- time tracking and invoices for freelancers who bill by the hour
.SH SYNOPSIS
.B elmworth
.RB [ \-demo ]
.RI [ COMMAND
.RI [ ARGUMENT ...]]
.SH DESCRIPTION
)";

constexpr std::string_view ending = R"(.SH EXIT STATUS
.TP
.B 0
The command did what it says.
.TP
.B 1
It failed, and nothing has changed; a sentence on standard error says why.
.TP
.B 2
It was used wrongly.
.SH FILES
.TP
.I ~/.local/share/Elmworth/library.sqlite
The library.
Beside it lie the PDFs of invoices, the logo and the daily snapshots.
.TP
.I ~/.config/Elmworth/Elmworth.ini
The settings and the business profile.
.PP
.B XDG_DATA_HOME
and
.B XDG_CONFIG_HOME
name other folders.
.SH EXAMPLES
.EX
elmworth client add "Acme Co" \-\-rate 120
elmworth project add Website \-\-client "Acme Co" \-\-budget 40
elmworth start Website \-\-notes "Landing page"
elmworth status \-\-format json
elmworth stop
elmworth invoice create \-\-client "Acme Co" \-\-period "Last Month"
.EE
)";

/// Text as it is: what troff would read as its own is spelt out.
std::string plain(std::string_view text) {
    std::string spelt;
    if (!text.empty() && (text.front() == '.' || text.front() == '\'')) spelt = "\\&";
    for (const char c : text) {
        if (c == '\\') {
            spelt += "\\e";
        } else if (c == '-') {
            spelt += "\\-";
        } else if (c == '\n') {
            spelt += ' ';
        } else {
            spelt += c;
        }
    }
    return spelt;
}

std::string sentence(std::string_view text) {
    return plain(text) + (text.ends_with('.') ? "\n" : ".\n");
}

std::string bold(std::string_view text) {
    return "\\fB" + plain(text) + "\\fR";
}

std::string italic(std::string_view text) {
    return "\\fI" + plain(text) + "\\fR";
}

std::string written(const CommandDescription::Value& value) {
    if (value.isPositional()) return italic(value.name);
    return bold(value.name) + (value.kind.empty() ? "" : ' ' + italic(value.kind));
}

bool isHelp(const CommandDescription::Value& value) {
    return value.name == "--help";
}

std::string usage(const std::string& path, const CommandDescription& command) {
    std::string line = bold(path);
    for (const auto& value : command.values) {
        if (isHelp(value)) continue;
        line += ' ';
        line += value.isRequired ? written(value) : '[' + written(value) + ']';
    }
    return line;
}

void addValues(std::string& page, const CommandDescription& command) {
    for (const auto& value : command.values) {
        if (!isHelp(value)) page += ".TP\n" + written(value) + '\n' + sentence(value.help);
    }
}

/// What is given by itself: not a word that only leads to others.
void addCommand(std::string& page, const std::string& path, const CommandDescription& command) {
    if (!command.needsSubcommand) {
        page += ".SS " + usage(path, command) + '\n' + sentence(command.help);
        if (!command.details.empty()) page += sentence(command.details);
        addValues(page, command);
    }
    for (const auto& subcommand : command.commands)
        addCommand(page, path + ' ' + subcommand.name, subcommand);
}

}  // namespace

std::string manualPage(const CommandDescription& program) {
    std::string page(beginning);
    page += sentence(program.help);
    page += ".SH OPTIONS\n.TP\n" + bold("-demo") +
            "\nBefore a command: works on a fresh demo library in memory.\n";
    addValues(page, program);
    page += ".TP\n" + bold("--help") + "\nBehind a command: tells how it is used.\n";
    page += ".SH COMMANDS\n";
    for (const auto& command : program.commands) addCommand(page, command.name, command);
    return page.append(ending);
}

}  // namespace elmworth
