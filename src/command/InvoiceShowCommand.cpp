// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/InvoiceCommand.h"
#include "command/InvoiceOutput.h"
#include "command/RecordLookup.h"

namespace elmworth {

void addInvoiceShowCommand(CommandSyntax& syntax, SubcommandSyntax invoice) {
    auto command = invoice.subcommand("show", "Shows an invoice with every figure");
    auto number = std::make_shared<std::string>();
    addNumber(command, *number);
    syntax.runs(
        command,
        [number](CommandEnvironment& environment, CommandOutput& output) {
            printInvoice(*findInvoice(environment.context, *number), environment, output);
        },
        Drawing::countsPages);
}

}  // namespace elmworth
