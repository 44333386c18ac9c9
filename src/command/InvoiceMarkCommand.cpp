// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/InvoiceCommand.h"
#include "command/InvoiceOutput.h"
#include "command/RecordLookup.h"

namespace elmworth {

void addInvoiceMarkCommand(CommandSyntax& syntax, CLI::App* invoice) {
    auto* command = invoice->add_subcommand("mark", "Marks an invoice as draft, sent or paid");
    auto number = std::make_shared<std::string>();
    auto status = std::make_shared<InvoiceStatus>();
    command->add_option("NUMBER", *number)->required();
    command->add_option("STATUS", *status)
        ->required()
        ->transform(CLI::CheckedTransformer(
            std::map<std::string, InvoiceStatus>{{"draft", InvoiceStatus::draft},
                                                 {"sent", InvoiceStatus::sent},
                                                 {"paid", InvoiceStatus::paid}},
            CLI::ignore_case))
        ->type_name("STATUS");
    syntax.carriesOut(
        command,
        [number, status](CommandEnvironment& environment, CommandOutput& output) {
            const auto found = findInvoice(environment.context, *number);
            found->setStatus(*status, environment.now());
            environment.context.saveOrRollback();
            if (output.isJSON()) printInvoice(*found, environment, output);
        },
        Drawing::countsPages);
}

}  // namespace elmworth
