// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <cstddef>
#include <cstdint>

#include "command/CommandError.h"
#include "command/CommandSyntax.h"
#include "command/JSONOutput.h"
#include "exchange/CSVImporter.h"
#include "exchange/FileSource.h"
#include "platform/Text.h"
#include "platform/TextEncoding.h"

namespace elmworth {

namespace {

/// Some eight million rows; a text has to fit into memory several times.
constexpr std::size_t largestFile = 1'000'000'000;

/// The rows of the file, whose text need not stay in memory.
std::vector<CSVImporter::Row> readRows(FileSource& file, CommandEnvironment& environment) {
    if (file.size() > largestFile)
        throw CommandError("This file is larger than 1 GB. Import a shorter period at a time.");
    const auto text = decodeText(file.readAll());
    if (!text) throw CommandError("The text encoding of this file can't be determined.");
    return CSVImporter::parse(*text, environment.calendar.zoneID(), environment.progress);
}

void importCSV(FileSource& file, CommandEnvironment& environment, CommandOutput& output) {
    const auto rows = readRows(file, environment);
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
