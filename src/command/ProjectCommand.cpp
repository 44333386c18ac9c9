// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clients/ProjectSummary.h"
#include "command/CommandSyntax.h"
#include "command/JSONOutput.h"
#include "command/RecordFields.h"
#include "command/RecordLookup.h"
#include "command/TextTable.h"
#include "platform/DurationFormat.h"
#include "platform/MoneyFormat.h"

namespace elmworth {

namespace {

struct ProjectArguments {
    std::string name;
    std::string client;
    std::string field;
    std::string value;
    std::string rate;
    std::string budget;
    std::string color;
    bool all = false;
};

void writeProject(JSONOutput& json, const ProjectSummary& summary) {
    const auto& project = *summary.project;
    json.beginObject();
    json.field("id", project.id().string());
    const auto& client = project.client.get();
    writeFields(json, project, {{"client", client ? Value(client->name.get()) : Value()}});
    json.field("budgetFraction", summary.budgetFraction);
    json.field("trackedSeconds", summary.trackedSeconds);
    json.field("unbilledSeconds", summary.unbilledSeconds);
    json.endObject();
}

std::string budgetText(const ProjectSummary& summary) {
    if (!summary.budgetFraction) return "";
    const auto percent = static_cast<std::int64_t>(std::round(*summary.budgetFraction * 100));
    return std::to_string(percent) + "% of " +
           std::to_string(summary.project->budgetHours->value_or(0)) + " h";
}

void printJSON(const Ref<Project>& project, CommandEnvironment& environment,
               CommandOutput& output) {
    JSONOutput json;
    writeProject(json, projectSummaries(environment.context, {project}, environment.now()).front());
    output.text += json.document();
}

void list(bool withArchived, CommandEnvironment& environment, CommandOutput& output) {
    const auto projects = allProjectSummaries(environment.context, environment.now(), withArchived);
    if (output.isJSON()) {
        JSONOutput json;
        json.beginArray();
        for (const auto& summary : projects) writeProject(json, summary);
        json.endArray();
        output.text += json.document();
        return;
    }
    if (projects.empty()) {
        return output.line(
            "There are no projects here. Add one with: elmworth project add NAME --client CLIENT");
    }
    using enum TextTable::Alignment;
    TextTable table({{"PROJECT"},
                     {"CLIENT"},
                     {"RATE", right},
                     {"TRACKED", right},
                     {"UNBILLED", right},
                     {"BUDGET", right},
                     {""}});
    for (const auto& summary : projects) {
        const auto& project = *summary.project;
        const auto& client = project.client.get();
        const std::string currency = client ? client->currencyCode.get() : "USD";
        table.add(
            {project.name, client ? client->name.get() : "",
             formatCents(project.effectiveRateCents(), currency, environment.moneyLocale) + "/h",
             formatHoursMinutes(summary.trackedSeconds),
             formatHoursMinutes(summary.unbilledSeconds), budgetText(summary),
             project.isArchived ? "Archived" : ""});
    }
    output.text += table.text();
}

/// Projects that are added one after the other can be told apart in the chart.
std::string nextColor(UnitOfWork& context) {
    return projectColors.at(context.fetchCount<Project>() % projectColors.size());
}

void add(const ProjectArguments& arguments, CommandEnvironment& environment,
         CommandOutput& output) {
    const auto project = std::make_shared<Project>(
        parseName(arguments.name).value(), findClient(environment.context, arguments.client));
    setField(*project, "color",
             arguments.color.empty() ? nextColor(environment.context) : arguments.color);
    if (!arguments.rate.empty()) setField(*project, "rate", arguments.rate);
    if (!arguments.budget.empty()) setField(*project, "budget", arguments.budget);
    environment.projects().add(project);
    if (!output.isJSON()) return output.line("Added the project “" + fullName(*project) + "”.");
    printJSON(project, environment, output);
}

void change(const ProjectArguments& arguments, CommandEnvironment& environment,
            CommandOutput& output) {
    const auto project = findProject(environment.context, arguments.name, arguments.client);
    auto projects = environment.projects();
    if (arguments.field == "client") {
        projects.move(project, findClient(environment.context, arguments.value));
    } else {
        projects.edit(project,
                      [&](Project& edited) { setField(edited, arguments.field, arguments.value); });
    }
    if (output.isJSON()) printJSON(project, environment, output);
}

void archive(const ProjectArguments& arguments, bool archived, CommandEnvironment& environment,
             CommandOutput& output) {
    const auto project = findProject(environment.context, arguments.name, arguments.client);
    environment.projects().setArchived(project, archived);
    if (output.isJSON()) printJSON(project, environment, output);
}

void remove(const ProjectArguments& arguments, CommandEnvironment& environment,
            CommandOutput& output) {
    const auto project = findProject(environment.context, arguments.name, arguments.client);
    const std::string name = fullName(*project);
    const bool deleted = environment.projects().remove(project);
    printDeletion(output, deleted,
                  deleted ? "Deleted the project “" + name + "” with its time entries."
                          : "“" + name +
                                "” has invoiced time, so it was archived instead of "
                                "deleted to keep your invoices intact.");
}

using Subcommand = void (*)(const ProjectArguments&, CommandEnvironment&, CommandOutput&);

SubcommandSyntax addNamed(CommandSyntax& syntax, SubcommandSyntax parent, const char* name,
                          const char* help, const std::shared_ptr<ProjectArguments>& arguments,
                          Subcommand run) {
    auto command = parent.subcommand(name, help);
    command.option("PROJECT", arguments->name, "The project's name").required();
    command.option("--client", arguments->client, "The client whose project it is")
        .typeName("CLIENT");
    syntax.runs(command, [arguments, run](CommandEnvironment& environment, CommandOutput& output) {
        run(*arguments, environment, output);
    });
    return command;
}

}  // namespace

void addProjectCommand(CommandSyntax& syntax) {
    auto project =
        syntax.program.subcommand("project", "Lists, adds, changes and deletes projects");
    project.requireSubcommand();
    auto arguments = std::make_shared<ProjectArguments>();

    auto listing = project.subcommand("list", "Lists the projects with their tracked time");
    listing.flag("--all", arguments->all, "Archived projects too");
    syntax.runs(listing, [arguments](CommandEnvironment& environment, CommandOutput& output) {
        list(arguments->all, environment, output);
    });

    auto adding = project.subcommand("add", "Adds a project");
    adding.option("NAME", arguments->name, "The new project's name").required();
    adding.option("--client", arguments->client, "The client it is for")
        .required()
        .typeName("CLIENT");
    adding
        .option("--rate", arguments->rate, "Its own hourly rate like 120. Without it: the client's")
        .typeName("AMOUNT");
    adding.option("--budget", arguments->budget, "Its budget like 40").typeName("HOURS");
    adding.option("--color", arguments->color, "Its color. Without it: the next of nine")
        .typeName("#RRGGBB");
    syntax.runs(adding, [arguments](CommandEnvironment& environment, CommandOutput& output) {
        add(*arguments, environment, output);
    });

    auto setting = project.subcommand("set", "Changes one field of a project");
    setting.option("PROJECT", arguments->name, "The project's name").required();
    setting.option("--client", arguments->client, "The client whose project it is")
        .typeName("CLIENT");
    const std::string fields = "client, " + settableFields(Project::schema());
    setting.option("FIELD", arguments->field, "One of " + fields).required().oneOf(fields);
    setting
        .option("VALUE", arguments->value,
                "As typed with \"project add\". Empty rate: the client's; empty budget: none")
        .required();
    syntax.runs(setting, [arguments](CommandEnvironment& environment, CommandOutput& output) {
        change(*arguments, environment, output);
    });

    addNamed(syntax, project, "archive", "Takes a project out of the timer's lists", arguments,
             [](const ProjectArguments& given, CommandEnvironment& environment,
                CommandOutput& output) { archive(given, true, environment, output); });
    addNamed(syntax, project, "unarchive", "Puts a project back into the timer's lists", arguments,
             [](const ProjectArguments& given, CommandEnvironment& environment,
                CommandOutput& output) { archive(given, false, environment, output); });
    addNamed(syntax, project, "delete",
             "Deletes a project with its time, or archives it when some of that is invoiced",
             arguments, &remove);
}

}  // namespace elmworth
