// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandSyntax.h"

#include <string_view>
#include <utility>

#include "exchange/FileSource.h"
#include "platform/Text.h"

namespace elmworth {

namespace {

constexpr std::string_view standardInput = "-";

FileSource openInput(const std::string& file, const CommandEnvironment& environment) {
    if (file == standardInput) return {environment.standardInput, "standard input"};
    return FileSource(environment.workingFolder / file);
}

}  // namespace

void CommandOutput::line(std::string_view content) {
    while (true) {
        const auto end = content.find('\n');
        text += oneLine(content.substr(0, end)) + '\n';
        if (end == std::string_view::npos) return;
        content.remove_prefix(end + 1);
    }
}

void CommandOutput::notice(std::string_view sentence) {
    errors += oneLine(sentence) + '\n';
}

void CommandSyntax::readsFile(SubcommandSyntax command, FileAction run) {
    const auto file = std::make_shared<std::string>();
    command.option("FILE", *file, "The file to read; - for standard input").required();
    command.whenGiven([this, file, run = std::move(run)] {
        readsStandardInput = *file == standardInput;
        action = [file, run](CommandEnvironment& environment, CommandOutput& output) {
            FileSource source = openInput(*file, environment);
            run(source, environment, output);
        };
    });
}

}  // namespace elmworth
