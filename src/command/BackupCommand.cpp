// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandSyntax.h"
#include "command/JSONOutput.h"
#include "exchange/BackupExporter.h"

namespace elmworth {

namespace {

void backUp(const std::string& file, CommandEnvironment& environment, CommandOutput& output) {
    const auto& profile = environment.profiles.profile();
    const auto tellOfRepairs = [&](const BackupExporter::Counts& counts) {
        if (counts.repairedTexts > 0)
            output.notice(BackupExporter::repairMessage(counts.repairedTexts));
    };
    if (file == "-") {
        return tellOfRepairs(
            BackupExporter::write(environment.context, profile, environment.now(),
                                  [&](std::string_view bytes) { output.text += bytes; }));
    }
    const auto path = environment.workingFolder / file;
    const auto counts =
        BackupExporter::writeFile(environment.context, profile, environment.now(), path,
                                  environment.progress, environment.namedFiles);
    tellOfRepairs(counts);
    if (!output.isJSON()) return output.line(path.string());
    JSONOutput json;
    json.beginObject();
    json.field("file", path.string());
    json.field("clients", static_cast<std::int64_t>(counts.clients));
    json.field("projects", static_cast<std::int64_t>(counts.projects));
    json.field("entries", static_cast<std::int64_t>(counts.entries));
    json.field("invoices", static_cast<std::int64_t>(counts.invoices));
    json.endObject();
    output.text += json.document();
}

}  // namespace

void addBackupCommand(CommandSyntax& syntax) {
    auto command = syntax.program.subcommand(
        "backup", "Writes the whole library as a JSON document and prints its path");
    auto file = std::make_shared<std::string>();
    command.option("FILE", *file, "Where to write; - for standard output").required();
    syntax.runs(command, [file](CommandEnvironment& environment, CommandOutput& output) {
        backUp(*file, environment, output);
    });
}

}  // namespace elmworth
