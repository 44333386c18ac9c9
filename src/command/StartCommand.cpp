// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandSyntax.h"
#include "command/RecordLookup.h"
#include "command/TimerOutput.h"

namespace elmworth {

namespace {

struct StartArguments {
    std::string project;
    std::string client;
    std::string notes;
};

}  // namespace

void addStartCommand(CommandSyntax& syntax) {
    auto command = syntax.program.subcommand(
        "start", "Starts the timer on a project, ending the entry that runs");
    auto arguments = std::make_shared<StartArguments>();
    command.option("PROJECT", arguments->project, "The project's name").required();
    command.option("--client", arguments->client, "The client whose project it is")
        .typeName("CLIENT");
    command.option("--notes", arguments->notes, "What you are working on");
    syntax.runs(command, [arguments](CommandEnvironment& environment, CommandOutput& output) {
        const auto project =
            findProject(environment.context, arguments->project, arguments->client);
        environment.timer.start(project, arguments->notes);
        requireSaved(environment.context);
        printTimer(environment, output, "Tracking " + fullName(*project) + ".");
    });
}

}  // namespace elmworth
