// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "command/CommandEnvironment.h"
#include "command/SubcommandSyntax.h"

namespace elmworth {

class FileSource;

enum class OutputFormat { text, json };

/// What a command writes to.
struct CommandOutput {
    OutputFormat format;
    std::string& text;
    std::string& errors;

    [[nodiscard]] bool isJSON() const noexcept { return format == OutputFormat::json; }
    /// Text for people, of one or more lines. Control characters, which records from a file may
    /// hold, become blanks: they would steer the terminal.
    void line(std::string_view content);
    /// A sentence beside the result, on standard error.
    void notice(std::string_view sentence);
};

using CommandAction = std::function<void(CommandEnvironment&, CommandOutput&)>;
using FileAction = std::function<void(FileSource&, CommandEnvironment&, CommandOutput&)>;

/// Gives the exit status.
using LibraryFileAction = std::function<int(FileCommandEnvironment&, CommandOutput&)>;

/// What a command needs of the GUI library.
enum class Drawing {
    none,
    countsPages,  ///< the logo, if there is one
    drawsPages,
};

/// Collects the action of the command that was parsed.
struct CommandSyntax {
    SubcommandSyntax program;
    CommandAction action = {};
    LibraryFileAction fileAction = {};
    Drawing drawing = Drawing::none;
    std::string opens = {};  ///< an action of the application's, such as "panel"
    bool readsStandardInput = false;

    /// Declares that `command` does `run`.
    void runs(SubcommandSyntax command, CommandAction run, Drawing needed = Drawing::none) {
        command.whenGiven([this, run = std::move(run), needed] {
            action = run;
            drawing = needed;
        });
    }

    /// Declares that `command` does `run` with the file of the library.
    void runsOnFile(SubcommandSyntax command, LibraryFileAction run) {
        command.whenGiven([this, run = std::move(run)] { fileAction = run; });
    }

    /// Declares that `command` takes a FILE, "-" for standard input, and does `run` with it.
    void readsFile(SubcommandSyntax command, FileAction run);
};

// One of these for each command; each adds its syntax to the program.
void addStatusCommand(CommandSyntax& syntax);
void addStartCommand(CommandSyntax& syntax);
void addStopCommand(CommandSyntax& syntax);
void addContinueCommand(CommandSyntax& syntax);
void addPanelCommand(CommandSyntax& syntax);
void addNewInvoiceCommand(CommandSyntax& syntax);
void addClientCommand(CommandSyntax& syntax);
void addProjectCommand(CommandSyntax& syntax);
void addLogCommand(CommandSyntax& syntax);
void addInvoiceCommand(CommandSyntax& syntax);
void addProfileCommand(CommandSyntax& syntax);
void addReportCommand(CommandSyntax& syntax);
void addExportCommand(CommandSyntax& syntax);
void addImportCommand(CommandSyntax& syntax);
void addBackupCommand(CommandSyntax& syntax);
void addRestoreCommand(CommandSyntax& syntax);
void addSettingsCommand(CommandSyntax& syntax);
void addCheckCommand(CommandSyntax& syntax);
void addRecoverCommand(CommandSyntax& syntax);

}  // namespace elmworth
