// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandError.h"
#include "command/InvoiceCommand.h"
#include "command/InvoiceOutput.h"
#include "command/RecordLookup.h"
#include "command/TimeArgument.h"

namespace elmworth {

namespace {

struct SetArguments {
    std::string number;
    std::string field;
    std::string value;
};

void setInvoiceField(const Ref<Invoice>& invoice, const SetArguments& arguments,
                     CommandEnvironment& environment) {
    auto invoices = environment.invoices();
    if (arguments.field == "notes") {
        invoices.setNotes(invoice, arguments.value);
    } else if (arguments.field == "showsEntryDetails") {
        invoices.setShowsEntryDetails(invoice,
                                      parseFlag(arguments.value, "showsEntryDetails").value());
    } else if (arguments.field == "issueDate") {
        invoices.setIssueDay(invoice, parseDay(arguments.value, environment));
    } else if (arguments.field == "dueDate") {
        invoices.setDueDay(invoice, parseDay(arguments.value, environment));
    } else {
        throw CommandError("There is no field “" + arguments.field +
                               "”. The fields are notes, showsEntryDetails, issueDate, dueDate.",
                           CommandError::Kind::usage);
    }
}

}  // namespace

void addInvoiceSetCommand(CommandSyntax& syntax, SubcommandSyntax invoice) {
    auto command = invoice.subcommand(
        "set", "Changes one field of an invoice; its dates only while it is a draft");
    auto arguments = std::make_shared<SetArguments>();
    addNumber(command, arguments->number);
    command
        .option("FIELD", arguments->field, "One of notes, showsEntryDetails, issueDate and dueDate")
        .required()
        .oneOf("notes, showsEntryDetails, issueDate, dueDate");
    command.option("VALUE", arguments->value, "Text, true or false, or a day like 2026-03-01")
        .required();
    syntax.runs(
        command,
        [arguments](CommandEnvironment& environment, CommandOutput& output) {
            const auto found = findInvoice(environment.context, arguments->number);
            setInvoiceField(found, *arguments, environment);
            if (output.isJSON()) printInvoice(*found, environment, output);
        },
        Drawing::countsPages);
}

}  // namespace elmworth
