// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandSyntax.h"
#include "command/JSONOutput.h"
#include "exchange/BackupDecoder.h"
#include "exchange/Restore.h"

namespace elmworth {

namespace {

void restoreBackup(FileSource& file, CommandEnvironment& environment, CommandOutput& output) {
    const auto backup = decodeBackup(file, environment.progress);
    RestoreResult result;
    environment.history.performForGood([&] {  // the profile comes too, which no step has
        result = restore(backup, environment.context, environment.profiles, environment.progress);
    });
    environment.timer.refresh();
    const std::string message = restoreMessage(backup, result);
    if (!output.isJSON()) return output.line(message);
    JSONOutput json;
    json.beginObject();
    json.field("clients", static_cast<std::int64_t>(backup.clients.size()));
    json.field("invoices", static_cast<std::int64_t>(backup.invoices.size()));
    json.field("unlinkedEntries", result.unlinkedEntries);
    json.field("message", message);
    json.endObject();
    output.text += json.document();
}

}  // namespace

void addRestoreCommand(CommandSyntax& syntax) {
    auto command =
        syntax.program.subcommand("restore", "Loads a backup document into an empty library");
    syntax.readsFile(command, &restoreBackup);
}

}  // namespace elmworth
