// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandSyntax.h"
#include "command/JSONOutput.h"
#include "command/RecordLookup.h"
#include "command/TimeArgument.h"
#include "platform/DurationFormat.h"
#include "records/FieldText.h"

namespace elmworth {

namespace {

struct LogArguments {
    std::string project;
    std::string client;
    std::string from;
    std::string to;
    std::string notes;
};

/// A night's work, written as 23:00 to 1:00, began yesterday or ends tomorrow: neither is guessed.
void refuseNight(const LogArguments& arguments, const EntryForm& form) {
    if (form.end > form.start || !isTimeOfToday(arguments.from) || !isTimeOfToday(arguments.to))
        return;
    throw Refused(
        "End must be after start. A time alone is today's: name the day of one that is "
        "not, like 2026-03-01T14:30.");
}

void log(const LogArguments& arguments, CommandEnvironment& environment, CommandOutput& output) {
    EntryForm form;
    form.project = findProject(environment.context, arguments.project, arguments.client);
    form.start = parseTime(arguments.from, environment);
    form.end = parseTime(arguments.to, environment);
    form.notes = arguments.notes;
    refuseNight(arguments, form);
    const auto entry = environment.entries().add(form);
    if (!output.isJSON()) {
        return output.line("Logged " + formatHoursMinutes(entry->duration(environment.now())) +
                           " on " + fullName(*form.project) + ".");
    }
    JSONOutput json;
    json.beginObject();
    json.field("id", entry->id().string());
    json.field("start", entry->start.get());
    json.field("end", entry->end.get());
    json.field("seconds", entry->duration(environment.now()));
    json.field("project", form.project->name.get());
    if (const auto& client = form.project->client.get()) json.field("client", client->name.get());
    json.field("notes", entry->notes.get());
    json.endObject();
    output.text += json.document();
}

}  // namespace

void addLogCommand(CommandSyntax& syntax) {
    auto command = syntax.program.subcommand("log", "Adds time that was worked without the timer");
    auto arguments = std::make_shared<LogArguments>();
    command.option("PROJECT", arguments->project, "The project's name").required();
    command.option("--client", arguments->client, "The client whose project it is")
        .typeName("CLIENT");
    command
        .option("--from", arguments->from,
                "When it began: 14:30 today, 2026-03-01T14:30, or with an offset")
        .required()
        .typeName("TIME");
    command.option("--to", arguments->to, "When it ended, written in the same way")
        .required()
        .typeName("TIME");
    command.option("--notes", arguments->notes, "What was done").typeName("TEXT");
    syntax.runs(command, [arguments](CommandEnvironment& environment, CommandOutput& output) {
        log(*arguments, environment, output);
    });
}

}  // namespace elmworth
