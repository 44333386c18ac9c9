// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <algorithm>

#include "command/JSONOutput.h"
#include "command/TimesheetArguments.h"
#include "exchange/CSVDocument.h"
#include "platform/AtomicFile.h"
#include "tracking/TimesheetReader.h"

namespace elmworth {

namespace {

/// Writes the finished entries that pass `filter` by start, and gives how many there were.
std::int64_t writeEntries(CommandEnvironment& environment, const TimesheetFilter& filter,
                          const std::function<void(std::string_view)>& sink) {
    CSVDocument document(environment.calendar.zoneID(), sink);
    std::int64_t count = 0;
    const TimesheetReader reader(environment.context, filter, environment.now());
    reader.forEach([&](const TimeEntry& entry) {
        if (!document.add(entry)) return;
        environment.progress.advance("Exporting", static_cast<std::size_t>(++count), 0);
    });
    document.finish();
    return count;
}

void exportCSV(const TimesheetArguments& arguments, const std::string& file,
               CommandEnvironment& environment, CommandOutput& output) {
    const auto filter = arguments.filter(environment);
    if (file == "-") {
        writeEntries(environment, filter, [&](std::string_view text) { output.text += text; });
        return;
    }
    const auto path = environment.workingFolder / file;
    AtomicFile target(path, environment.namedFiles);
    const auto count =
        writeEntries(environment, filter, [&](std::string_view text) { target.write(text); });
    target.commit();
    if (!output.isJSON()) {
        return output.line("Exported " + std::to_string(count) +
                           (count == 1 ? " entry." : " entries."));
    }
    JSONOutput json;
    json.beginObject();
    json.field("file", path.string());
    json.field("exported", count);
    json.endObject();
    output.text += json.document();
}

}  // namespace

void addExportCommand(CommandSyntax& syntax) {
    auto command = syntax.program.subcommand("export", "Writes time as a CSV file");
    auto arguments = std::make_shared<TimesheetArguments>();
    auto file = std::make_shared<std::string>();
    command.option("FILE", *file, "Where to write; - for standard output").required();
    arguments->addTo(command);
    syntax.runs(command, [arguments, file](CommandEnvironment& environment, CommandOutput& output) {
        exportCSV(*arguments, *file, environment, output);
    });
}

}  // namespace elmworth
