// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/InvoiceCommand.h"
#include "command/JSONOutput.h"
#include "command/RecordLookup.h"

namespace elmworth {

void addInvoiceDeleteCommand(CommandSyntax& syntax, SubcommandSyntax invoice) {
    auto command =
        invoice.subcommand("delete", "Deletes an invoice; its entries become unbilled again");
    auto number = std::make_shared<std::string>();
    addNumber(command, *number);
    syntax.runs(command, [number](CommandEnvironment& environment, CommandOutput& output) {
        const auto found = findInvoice(environment.context, *number);
        const auto entries = found->entries().size();
        environment.invoices().remove(found);
        printDeletion(output, true,
                      "Deleted " + *number + ". Its " + std::to_string(entries) +
                          (entries == 1 ? " time entry is" : " time entries are") +
                          " unbilled again.");
    });
}

}  // namespace elmworth
