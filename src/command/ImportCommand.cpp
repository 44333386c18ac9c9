// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandSyntax.h"
#include "command/JSONOutput.h"
#include "exchange/CSVImporter.h"
#include "exchange/FileSource.h"
#include "platform/Text.h"

namespace elmworth {

namespace {

void importCSV(FileSource& file, CommandEnvironment& environment, CommandOutput& output) {
    const auto rows =
        CSVImporter::readFile(file, environment.calendar.zoneID(), environment.progress);
    CSVImporter::Result result;
    environment.history.perform("Import", [&] {
        result = CSVImporter::apply(rows, environment.context, environment.progress);
    });
    const std::string message = CSVImporter::message(result);
    if (!output.isJSON()) return output.line(oneLine(message));  // names come from outside
    JSONOutput json;
    json.beginObject();
    json.field("imported", result.imported);
    json.key("newClients");
    json.beginArray();
    for (const auto& name : result.newClients) json.value(name);
    json.endArray();
    json.field("skipped", result.skipped);
    json.field("message", message);
    json.endObject();
    output.text += json.document();
}

}  // namespace

void addImportCommand(CommandSyntax& syntax) {
    auto command = syntax.program.subcommand(
        "import", "Adds time from a CSV file: an export, or a Toggl Track detailed report");
    syntax.readsFile(command, &importCSV);
}

}  // namespace elmworth
