// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandError.h"
#include "command/InvoiceCommand.h"
#include "command/InvoiceOutput.h"
#include "command/RecordLookup.h"
#include "command/TimeArgument.h"
#include "invoicing/InvoiceEditing.h"
#include "records/FieldText.h"

namespace elmworth {

namespace {

struct SetArguments {
    std::string number;
    std::string field;
    std::string value;
};

/// The day that was typed, at the time of day that the date has had.
Instant onDay(Instant day, Instant oldDate, const CommandEnvironment& environment) {
    const auto time = environment.calendar.components(oldDate);
    return environment.calendar.settingTime(time.hour, time.minute, time.second, day).value_or(day);
}

void setDate(const Ref<Invoice>& invoice, const SetArguments& arguments,
             CommandEnvironment& environment) {
    const Instant day = parseDay(arguments.value, environment);
    if (!canChangeDates(*invoice)) throw CommandError("Dates are locked once an invoice is sent.");
    if (arguments.field == "issueDate") {
        setIssueDate(invoice, onDay(day, invoice->issueDate, environment), environment.context);
    } else {
        setDueDate(invoice, onDay(day, invoice->dueDate, environment), environment.context);
    }
}

void setInvoiceField(const Ref<Invoice>& invoice, const SetArguments& arguments,
                     CommandEnvironment& environment) {
    if (arguments.field == "notes") {
        setInvoiceNotes(invoice, arguments.value, environment.context);
    } else if (arguments.field == "showsEntryDetails") {
        invoice->showsEntryDetails = parseFlag(arguments.value, "showsEntryDetails").value();
    } else if (arguments.field == "issueDate" || arguments.field == "dueDate") {
        setDate(invoice, arguments, environment);
    } else {
        throw CommandError("There is no field “" + arguments.field +
                               "”. The fields are notes, showsEntryDetails, issueDate, dueDate.",
                           CommandError::Kind::usage);
    }
    environment.context.saveOrRollback();
}

}  // namespace

void addInvoiceSetCommand(CommandSyntax& syntax, SubcommandSyntax invoice) {
    auto command = invoice.subcommand(
        "set", "Changes one field of an invoice; its dates only while it is a draft");
    auto arguments = std::make_shared<SetArguments>();
    addNumber(command, arguments->number);
    command
        .option("FIELD", arguments->field, "One of notes, showsEntryDetails, issueDate and dueDate")
        .required();
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
