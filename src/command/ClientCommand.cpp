// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <array>

#include "command/CommandSyntax.h"
#include "command/FieldTable.h"
#include "command/JSONOutput.h"
#include "command/RecordLookup.h"
#include "command/TextTable.h"
#include "invoicing/UnbilledTime.h"
#include "platform/MoneyFormat.h"
#include "tracking/DurationFormat.h"

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
    json.field("name", client.name.get());
    json.field("email", client.email.get());
    json.field("address", client.address.get());
    json.field("currencyCode", client.currencyCode.get());
    json.field("hourlyRateCents", client.hourlyRateCents.get());
    json.field("dueDays", client.dueDays.get());
    json.field("taxBasisPoints", client.taxBasisPoints.get());
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

void setDueDays(Client& client, const std::string& value) {
    client.dueDays = value.empty() ? std::nullopt : std::optional(parseDueDays(value).value());
}

void setCurrency(Client& client, const std::string& value) {
    client.currencyCode = parseCurrency(value).value();
}

constexpr std::array<SettableField<Client>, 9> fields{{
    {"name",
     [](Client& client, const std::string& value) { client.name = parseName(value).value(); }},
    {"email", [](Client& client, const std::string& value) { client.email = value; }},
    {"address", [](Client& client, const std::string& value) { client.address = value; }},
    {"currency", &setCurrency},
    {"currencyCode", &setCurrency},
    {"rate", [](Client& client,
                const std::string& value) { client.hourlyRateCents = parseRate(value).value(); }},
    {"due-days", &setDueDays},
    {"dueDays", &setDueDays},
    {"tax",
     [](Client& client, const std::string& value) {
         client.taxBasisPoints =
             value.empty() ? std::nullopt : std::optional(parseTaxRate(value).value());
     }},
}};

void set(Client& client, const std::string& field, const std::string& value) {
    setField<Client>(fields, client, field, value);
}

void add(const ClientArguments& arguments, CommandEnvironment& environment, CommandOutput& output) {
    // The record joins the library only when every value was read.
    const auto client = std::make_shared<Client>(parseName(arguments.name).value());
    set(*client, "email", arguments.email);
    set(*client, "address", arguments.address);
    if (!arguments.currency.empty()) set(*client, "currency", arguments.currency);
    if (!arguments.rate.empty()) set(*client, "rate", arguments.rate);
    if (!arguments.dueDays.empty()) set(*client, "due-days", arguments.dueDays);
    if (!arguments.tax.empty()) set(*client, "tax", arguments.tax);
    environment.clients().add(client);
    if (!output.isJSON()) return output.line("Added the client “" + client->name.get() + "”.");
    printJSON(client, environment, output);
}

void change(const ClientArguments& arguments, CommandEnvironment& environment,
            CommandOutput& output) {
    const auto client = findClient(environment.context, arguments.name);
    environment.clients().edit(
        client, [&](Client& edited) { set(edited, arguments.field, arguments.value); });
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
    setting.option("NAME", arguments->name, "The client's name").required();
    setting
        .option("FIELD", arguments->field,
                "One of name, email, address, currency, rate, due-days and tax")
        .required();
    setting
        .option("VALUE", arguments->value,
                "As typed with \"client add\". Empty due-days or tax: the business default")
        .required();
    syntax.runs(setting, [arguments](CommandEnvironment& environment, CommandOutput& output) {
        change(*arguments, environment, output);
    });

    auto deleting = client.subcommand(
        "delete", "Deletes a client with its projects and their time, unless it has invoices");
    deleting.option("NAME", arguments->name, "The client's name").required();
    syntax.runs(deleting, [arguments](CommandEnvironment& environment, CommandOutput& output) {
        remove(arguments->name, environment, output);
    });
}

}  // namespace elmworth
