// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandSyntax.h"
#include "command/JSONOutput.h"
#include "command/TextTable.h"
#include "platform/Settings.h"
#include "records/ProfileStore.h"
#include "rescue/Recovery.h"

namespace elmworth {

namespace {

/// More remarks than these are for the file.
constexpr std::size_t mostRemarks = 20;

constexpr const char* typeNames[] = {"Clients", "Projects", "Entries", "Invoices"};
constexpr const char* typeKeys[] = {"clients", "projects", "entries", "invoices"};

std::string table(const RecoveryReport& report) {
    using enum TextTable::Alignment;
    TextTable table({{"", left},
                     {"library", right},
                     {"indexes", right},
                     {"snapshot", right},
                     {"unknown", right}});
    for (std::size_t i = 0; i < report.counts.size(); ++i) {
        const auto& count = report.counts[i];
        table.add({typeNames[i], std::to_string(count.fromLibrary),
                   std::to_string(count.fromIndexes), std::to_string(count.fromSnapshot),
                   std::to_string(count.unknown)});
    }
    return table.text();
}

std::string sources(const RecoveryReport& report) {
    std::string text = "Read " + std::to_string(report.pages - report.damagedPages) + " of " +
                       std::to_string(report.pages) + " pages of the library";
    if (report.snapshot) text += ", and the snapshot of " + formatISO8601(*report.snapshot);
    return text + '.';
}

/// A log beside another library than its own would be written into that one.
std::string nextSteps(const RecoveryReport& report, const FileCommandEnvironment& environment) {
    const std::string name = environment.library.filename().string();
    return "To go on with it: quit Elmworth, move " + name + " and " + name + "-wal out of " +
           environment.library.parent_path().string() + ", both of them, and copy " +
           report.library.string() + " there. Or move them away, start Elmworth, and restore " +
           report.backup.string() + " in its settings.";
}

void printText(const RecoveryReport& report, const FileCommandEnvironment& environment,
               CommandOutput& output) {
    output.line(sources(report));
    output.text += table(report);
    for (std::size_t i = 0; i < report.remarks.size() && i < mostRemarks; ++i)
        output.line(report.remarks[i]);
    if (report.remarks.size() > mostRemarks) {
        output.line("… and " + std::to_string(report.remarks.size() - mostRemarks) +
                    " more remarks in " + report.remarksFile.string());
    }
    output.line(nextSteps(report, environment));
}

void printJSON(const RecoveryReport& report, CommandOutput& output) {
    JSONOutput json;
    json.beginObject();
    json.field("library", report.library.string());
    json.field("backup", report.backup.string());
    json.field("pages", static_cast<std::int64_t>(report.pages));
    json.field("damagedPages", static_cast<std::int64_t>(report.damagedPages));
    json.field("snapshot", report.snapshot);
    for (std::size_t i = 0; i < report.counts.size(); ++i) {
        const auto& count = report.counts[i];
        json.key(typeKeys[i]);
        json.beginObject();
        json.field("library", static_cast<std::int64_t>(count.fromLibrary));
        json.field("indexes", static_cast<std::int64_t>(count.fromIndexes));
        json.field("snapshot", static_cast<std::int64_t>(count.fromSnapshot));
        json.field("unknown", static_cast<std::int64_t>(count.unknown));
        json.endObject();
    }
    json.key("remarks");
    json.beginArray();
    for (const auto& remark : report.remarks) json.value(remark);
    json.endArray();
    json.endObject();
    output.text += json.document();
}

std::optional<BusinessProfile> storedProfile(const FileCommandEnvironment& environment) {
    Settings settings(environment.settings);
    if (!settings.contains("businessProfile")) return std::nullopt;
    return ProfileStore(settings).profile();
}

int recover(const std::string& folder, FileCommandEnvironment& environment, CommandOutput& output) {
    const auto target = (environment.workingFolder / folder).lexically_normal();
    const auto report =
        recoverLibrary({environment.library, environment.snapshots, storedProfile(environment)},
                       target, environment.now(), environment.progress);
    output.isJSON() ? printJSON(report, output) : printText(report, environment, output);
    return 0;
}

}  // namespace

void addRecoverCommand(CommandSyntax& syntax) {
    auto command = syntax.program.subcommand(
        "recover",
        "Writes what can be read of a damaged library, completed from the newest snapshot, into a "
        "new one\n"
        "The damaged library stays as it is, and what it still has, holds. From the newest "
        "snapshot that can be read comes what the library points to and lacks; where pages of it "
        "are damaged, also what it does not show at all, and so perhaps what was deleted since "
        "that snapshot. An entry of the snapshot that overlaps time of the library stays away, so "
        "that no time counts twice. Each addition is named.");
    auto folder = std::make_shared<std::string>();
    command.option("FOLDER", *folder, "A new folder for the library and a backup of it").required();
    syntax.runsOnFile(command,
                      [folder](FileCommandEnvironment& environment, CommandOutput& output) {
                          return recover(*folder, environment, output);
                      });
}

}  // namespace elmworth
