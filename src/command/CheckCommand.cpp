// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandSyntax.h"
#include "command/JSONOutput.h"
#include "platform/Text.h"
#include "records/LibrarySchema.h"
#include "rescue/LibraryCheck.h"
#include "store/sqlite/LibraryMigration.h"

namespace elmworth {

namespace {

std::string summary(const LibraryReport& report) {
    return "The library is sound: " + counted(report.records[0], "client", "clients") + ", " +
           counted(report.records[1], "project", "projects") + ", " +
           counted(report.records[2], "entry", "entries") + ", " +
           counted(report.records[3], "invoice", "invoices") + '.';
}

void printText(const LibraryReport& report, CommandOutput& output) {
    for (const auto& finding : report.findings) output.line(finding.line());
    if (!report.findings.empty()) return;
    output.line(summary(report));
    const auto current = librarySchema().version;
    if (report.version == static_cast<std::uint32_t>(current)) return;
    output.line("It has version " + sqlite::versionText(report.version) + ", and becomes " +
                sqlite::versionText(current) + " when Elmworth opens it.");
}

void printJSON(const LibraryReport& report, CommandOutput& output) {
    constexpr const char* names[] = {"clients", "projects", "entries", "invoices"};
    JSONOutput json;
    json.beginObject();
    json.field("version", sqlite::versionText(report.version));
    for (std::size_t i = 0; i < report.records.size(); ++i)
        json.field(names[i], static_cast<std::int64_t>(report.records[i]));
    json.key("findings");
    json.beginArray();
    for (const auto& finding : report.findings) {
        json.beginObject();
        json.field("record", finding.record);
        if (finding.id) json.field("id", finding.id->string());
        json.field("problem", finding.problem);
        json.endObject();
    }
    json.endArray();
    json.endObject();
    output.text += json.document();
}

int check(FileCommandEnvironment& environment, CommandOutput& output) {
    const sqlite::LibraryImage image(environment.library);
    const auto report = checkLibrary(image, environment.progress);
    output.isJSON() ? printJSON(report, output) : printText(report, output);
    if (report.findings.empty()) return 0;
    output.notice("The library has " + counted(report.findings.size(), "fault", "faults") +
                  ". elmworth recover FOLDER writes what can be read of it into a new library.");
    return 1;
}

}  // namespace

void addCheckCommand(CommandSyntax& syntax) {
    auto command = syntax.program.subcommand(
        "check",
        "Verifies the library without changing it, also while the application runs\n"
        "Prints a line for each fault, and exits with 1 when there are any.");
    syntax.runsOnFile(command, &check);
}

}  // namespace elmworth
