// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/InvoiceCommand.h"
#include "command/InvoiceOutput.h"
#include "command/JSONOutput.h"
#include "command/RecordLookup.h"
#include "invoicing/InvoiceEmail.h"

namespace elmworth {

void addInvoiceEmailCommand(CommandSyntax& syntax, SubcommandSyntax invoice) {
    auto command = invoice.subcommand("email", "Prints the e-mail text of an invoice");
    auto number = std::make_shared<std::string>();
    addNumber(command, *number);
    syntax.runs(command, [number](CommandEnvironment& environment, CommandOutput& output) {
        const auto found = findInvoice(environment.context, *number);
        const auto model = renderModel(*found, environment, nullptr);
        const std::string text = emailText(model, model.billTo.name);
        if (!output.isJSON()) return output.line(text);
        JSONOutput json;
        json.beginObject();
        json.field("text", text);
        json.endObject();
        output.text += json.document();
    });
}

}  // namespace elmworth
