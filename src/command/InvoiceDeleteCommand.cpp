// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/InvoiceCommand.h"
#include "command/RecordLookup.h"
#include "invoicing/InvoiceEditing.h"

namespace elmworth {

void addInvoiceDeleteCommand(CommandSyntax& syntax, CLI::App* invoice) {
    auto* command =
        invoice->add_subcommand("delete", "Deletes an invoice; its entries become unbilled again");
    auto number = std::make_shared<std::string>();
    command->add_option("NUMBER", *number)->required();
    syntax.carriesOut(command, [number](CommandEnvironment& environment, CommandOutput& output) {
        const auto found = findInvoice(environment.context, *number);
        const auto entries = found->entries().size();
        const InvoiceBuilder builder{environment.context, environment.now, environment.calendar};
        try {
            deleteWithFile(builder, found);
        } catch (const StoreError&) {
            environment.context.rollback();
            throw;
        }
        if (!output.isJSON()) {
            output.line("Deleted " + *number + ". Its " + std::to_string(entries) +
                        " time entries are unbilled again.");
        }
    });
}

}  // namespace elmworth
