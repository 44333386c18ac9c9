// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/InvoiceCommand.h"
#include "command/InvoiceOutput.h"
#include "command/RecordLookup.h"
#include "command/TimeArgument.h"
#include "records/Client.h"

namespace elmworth {

namespace {

/// What an invoice is made of; preview and creation read it in the same way.
struct InvoiceArguments {
    std::string client;
    PeriodArguments period;
    std::string tax;

    void addTo(SubcommandSyntax command) {
        command.option("--client", client, "The client to bill").required().typeName("CLIENT");
        command.option("--period", period.period, "One of " + periodNames())
            .typeName("PERIOD")
            .oneOf(periodNames());
        command.option("--from", period.from, "Instead of a period: its first day, 2026-03-01")
            .typeName("DAY");
        command.option("--through", period.through, "And its last day, 2026-03-31").typeName("DAY");
        command
            .option("--tax", tax,
                    "Tax rate like 8.25. Without it: the client's, or the business default")
            .typeName("PERCENT");
    }
};

struct InvoiceRequest {
    Ref<Client> client;
    DateInterval period;
    std::int64_t taxBasisPoints;
};

InvoiceRequest resolve(const InvoiceArguments& arguments, CommandEnvironment& environment) {
    const auto client = findClient(environment.context, arguments.client);
    const auto period = arguments.period.interval(environment);
    return {client, period,
            arguments.tax.empty() ? environment.invoices().taxRate(*client)
                                  : parseTaxRate(arguments.tax).value()};
}

void preview(const InvoiceArguments& arguments, CommandEnvironment& environment,
             CommandOutput& output) {
    const auto [client, period, tax] = resolve(arguments, environment);
    const auto totals = environment.invoices().preview(client, period, tax);
    if (output.isJSON()) {
        JSONOutput json;
        json.beginObject();
        writeTotals(json, totals, true);
        json.endObject();
        output.text += json.document();
    } else if (totals.lines.empty()) {
        output.line("No unbilled, finished entries for this client in this period.");
    } else {
        output.text += totalsText(totals, client->currencyCode, environment.moneyLocale);
    }
}

void create(const InvoiceArguments& arguments, CommandEnvironment& environment,
            CommandOutput& output) {
    const auto [client, period, tax] = resolve(arguments, environment);
    const auto invoice = environment.invoices().create(client, period, tax);
    if (output.isJSON()) {
        printInvoice(*invoice, environment, output);
    } else {
        output.line(invoice->number.get());
    }
}

using Action = void (*)(const InvoiceArguments&, CommandEnvironment&, CommandOutput&);

void addCommand(CommandSyntax& syntax, SubcommandSyntax invoice, const char* name, const char* help,
                Action action, Drawing drawing) {
    auto command = invoice.subcommand(name, help);
    auto arguments = std::make_shared<InvoiceArguments>();
    arguments->addTo(command);
    syntax.runs(
        command,
        [arguments, action](CommandEnvironment& environment, CommandOutput& output) {
            action(*arguments, environment, output);
        },
        drawing);
}

}  // namespace

void addInvoicePreviewCommand(CommandSyntax& syntax, SubcommandSyntax invoice) {
    addCommand(syntax, invoice, "preview", "Shows what an invoice would hold; changes nothing",
               &preview, Drawing::none);
}

void addInvoiceCreateCommand(CommandSyntax& syntax, SubcommandSyntax invoice) {
    addCommand(syntax, invoice, "create", "Makes a draft of a client's unbilled time in a period",
               &create, Drawing::countsPages);
}

}  // namespace elmworth
