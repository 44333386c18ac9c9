// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/Choice.h"
#include "command/InvoiceCommand.h"
#include "command/InvoiceOutput.h"
#include "command/RecordLookup.h"

namespace elmworth {

void addInvoiceMarkCommand(CommandSyntax& syntax, SubcommandSyntax invoice) {
    auto command = invoice.subcommand("mark", "Marks an invoice as draft, sent or paid");
    auto number = std::make_shared<std::string>();
    auto status = std::make_shared<InvoiceStatus>();
    addNumber(command, *number);
    addChoice(command, "STATUS", status,
              {{"draft", InvoiceStatus::draft},
               {"sent", InvoiceStatus::sent},
               {"paid", InvoiceStatus::paid}},
              "What it becomes: ")
        .required();
    syntax.runs(
        command,
        [number, status](CommandEnvironment& environment, CommandOutput& output) {
            const auto found = findInvoice(environment.context, *number);
            environment.invoices().setStatus(found, *status);
            if (output.isJSON()) printInvoice(*found, environment, output);
        },
        Drawing::countsPages);
}

}  // namespace elmworth
