// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/InvoiceCommand.h"
#include "command/InvoiceOutput.h"
#include "command/RecordLookup.h"

namespace elmworth {

void addInvoiceRenameCommand(CommandSyntax& syntax, SubcommandSyntax invoice) {
    auto command = invoice.subcommand("rename", "Gives a draft another number");
    auto number = std::make_shared<std::string>();
    auto newNumber = std::make_shared<std::string>();
    addNumber(command, *number);
    command.option("NEW", *newNumber, "Its new number, used by no other invoice").required();
    syntax.runs(
        command,
        [number, newNumber](CommandEnvironment& environment, CommandOutput& output) {
            const auto found = findInvoice(environment.context, *number);
            environment.invoices().rename(found, *newNumber);
            if (output.isJSON()) printInvoice(*found, environment, output);
        },
        Drawing::countsPages);
}

}  // namespace elmworth
