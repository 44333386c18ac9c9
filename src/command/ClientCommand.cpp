// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandSyntax.h"
#include "command/JSONOutput.h"
#include "command/RecordFields.h"
#include "command/RecordLookup.h"
#include "command/TextTable.h"
#include "invoicing/UnbilledTime.h"
#include "platform/DurationFormat.h"
#include "platform/MoneyFormat.h"

namespace elmworth {

namespace {

struct ClientArguments {
    std::string name;
    std::string field;
    std::string value;
    std::string email;
    std::string address;
    std::string currency;
    std::string rate;
    std::string dueDays;
    std::string tax;
};

void writeClient(JSONOutput& json, const ClientSummary& summary) {
    const auto& client = *summary.client;
    json.beginObject();
    json.field("id", client.id().string());
    writeFields(json, client);
    json.field("activeProjects", summary.activeProjects);
    json.field("unbilledSeconds", summary.unbilled.seconds);
    json.field("unbilledCents", summary.unbilled.cents);
    json.endObject();
}

void printJSON(const Ref<Client>& client, CommandEnvironment& environment, CommandOutput& output) {
    JSONOutput json;
    writeClient(json, clientSummary(client, unbilledTimeByProject(environment.context)));
    output.text += json.document();
}

void list(CommandEnvironment& environment, CommandOutput& output) {
    const auto clients = allClientSummaries(environment.context);
    if (output.isJSON()) {
        JSONOutput json;
        json.beginArray();
        for (const auto& summary : clients) writeClient(json, summary);
        json.endArray();
        output.text += json.document();
        return;
    }
    if (clients.empty()) {
        return output.line("There are no clients yet. Add one with: elmworth client add NAME");
    }
    using enum TextTable::Alignment;
    TextTable table({{"CLIENT"},
                     {"EMAIL"},
                     {"RATE", right},
                     {"PROJECTS", right},
                     {"UNBILLED", right},
                     {"VALUE", right}});
    for (const auto& [client, projects, unbilled] : clients) {
        const std::string currency = client->currencyCode;
        table.add({client->name, client->email,
                   formatCents(client->hourlyRateCents, currency, environment.moneyLocale) + "/h",
                   std::to_string(projects), formatHoursMinutes(unbilled.seconds),
                   formatCents(unbilled.cents, currency, environment.moneyLocale)});
    }
    output.text += table.text();
}

void add(const ClientArguments& arguments, CommandEnvironment& environment, CommandOutput& output) {
    // The record joins the library only when every value was read.
    const auto client = std::make_shared<Client>(parseName(arguments.name).value());
    setField(*client, "email", arguments.email);
    setField(*client, "address", arguments.address);
    if (!arguments.currency.empty()) setField(*client, "currency", arguments.currency);
    if (!arguments.rate.empty()) setField(*client, "rate", arguments.rate);
    if (!arguments.dueDays.empty()) setField(*client, "due-days", arguments.dueDays);
    if (!arguments.tax.empty()) setField(*client, "tax", arguments.tax);
    const bool isSecond = hasClient(environment.context, client->name);
    environment.clients().add(client);
    if (isSecond) {
        output.notice("There is another client “" + client->name.get() +
                      "”. Commands can't tell the two apart until one is renamed in the window.");
    }
    if (!output.isJSON()) return output.line("Added the client “" + client->name.get() + "”.");
    printJSON(client, environment, output);
}

void change(const ClientArguments& arguments, CommandEnvironment& environment,
            CommandOutput& output) {
    const auto client = findClient(environment.context, arguments.name);
    environment.clients().edit(
        client, [&](Client& edited) { setField(edited, arguments.field, arguments.value); });
    if (output.isJSON()) printJSON(client, environment, output);
}

void remove(const std::string& name, CommandEnvironment& environment, CommandOutput& output) {
    const auto client = findClient(environment.context, name);
    const std::string foundName = client->name;
    environment.clients().remove(client);
    printDeletion(
        output, true,
        "Deleted the client “" + foundName + "” with its projects and their time entries.");
}

}  // namespace

void addClientCommand(CommandSyntax& syntax) {
    auto client = syntax.program.subcommand("client", "Lists, adds, changes and deletes clients");
    client.requireSubcommand();
    auto arguments = std::make_shared<ClientArguments>();

    syntax.runs(client.subcommand("list", "Lists all clients with their unbilled time"), &list);

    auto adding = client.subcommand("add", "Adds a client");
    adding.option("NAME", arguments->name, "The new client's name").required();
    adding.option("--email", arguments->email, "Billing e-mail address").typeName("EMAIL");
    adding.option("--address", arguments->address, "Billing address").typeName("TEXT");
    adding.option("--currency", arguments->currency, "ISO code like EUR. Without it: USD")
        .typeName("CODE");
    adding.option("--rate", arguments->rate, "Hourly rate like 120 or 120.50. Without it: 100")
        .typeName("AMOUNT");
    adding
        .option("--due-days", arguments->dueDays,
                "Payment term in days. Without it: the business default")
        .typeName("N");
    adding.option("--tax", arguments->tax, "Tax rate like 8.25. Without it: the business default")
        .typeName("PERCENT");
    syntax.runs(adding, [arguments](CommandEnvironment& environment, CommandOutput& output) {
        add(*arguments, environment, output);
    });

    auto setting = client.subcommand("set", "Changes one field of a client");
    setting.option("CLIENT", arguments->name, "The client's name").required();
    setting.option("FIELD", arguments->field, "One of " + settableFields(Client::schema()))
        .required()
        .oneOf(settableFields(Client::schema()));
    setting
        .option("VALUE", arguments->value,
                "As typed with \"client add\". Empty due-days or tax: the business default")
        .required();
    syntax.runs(setting, [arguments](CommandEnvironment& environment, CommandOutput& output) {
        change(*arguments, environment, output);
    });

    auto deleting = client.subcommand(
        "delete", "Deletes a client with its projects and their time, unless it has invoices");
    deleting.option("CLIENT", arguments->name, "The client's name").required();
    syntax.runs(deleting, [arguments](CommandEnvironment& environment, CommandOutput& output) {
        remove(arguments->name, environment, output);
    });
}

}  // namespace elmworth
