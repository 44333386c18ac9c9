// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/Choice.h"
#include "command/CommandError.h"
#include "command/InvoiceCommand.h"
#include "command/InvoiceOutput.h"
#include "command/TextTable.h"
#include "invoicing/InvoiceFigures.h"
#include "invoicing/InvoiceList.h"
#include "invoicing/InvoicePages.h"
#include "platform/DateFormatter.h"
#include "platform/MoneyFormat.h"
#include "records/Client.h"

namespace elmworth {

namespace {

void writeList(JSONOutput& json, const std::vector<Ref<Invoice>>& invoices,
               const InvoiceFigures& figures, CommandEnvironment& environment) {
    const LogoImage logo = environment.painter ? environment.painter->loadLogo() : nullptr;
    json.beginArray();
    for (const auto& invoice : invoices) {
        const auto price = [&]() -> PricedInvoice {
            const auto frame = makeInvoiceFrame(*invoice, environment.profiles.profile(), logo);
            return {figures.totals(*invoice), pageCount(frame, figures.rowCount(*invoice))};
        };
        writeInvoice(json, *invoice, price, environment, false);
    }
    json.endArray();
}

void list(InvoiceFilter filter, CommandEnvironment& environment, CommandOutput& output) {
    auto invoices = environment.context.fetch(
        Query<Invoice>{.sortBy = {sortedBy<&Invoice::issueDate>(SortOrder::reverse),
                                  sortedBy<&Invoice::number>(SortOrder::reverse)}});
    const Instant today = environment.calendar.startOfDay(environment.now());
    std::erase_if(invoices, [&](const auto& invoice) {
        return !passes({invoice->id(), invoice->number, invoice->issueDate, invoice->dueDate,
                        invoice->status()},
                       filter, today);
    });
    const InvoiceFigures figures(environment.context, invoices);
    if (output.isJSON()) {
        JSONOutput json;
        writeList(json, invoices, figures, environment);
        output.text += json.document();
        return;
    }
    if (invoices.empty()) return output.line("There are no invoices here.");
    const DateFormatter dates(DateFormatter::Style::mediumDate, environment.locale,
                              environment.calendar.zoneID());
    using enum TextTable::Alignment;
    TextTable table({{"NUMBER"}, {"CLIENT"}, {"ISSUED"}, {"DUE"}, {"STATUS"}, {"TOTAL", right}});
    for (const auto& invoice : invoices) {
        const auto& client = invoice->client.get();
        table.add(
            {invoice->number, client ? client->name.get() : "", dates.string(invoice->issueDate),
             dates.string(invoice->dueDate), statusText(*invoice, environment),
             totalText(
                 *invoice, [&] { return figures.totals(*invoice); }, environment.moneyLocale)});
    }
    output.text += table.text();
}

}  // namespace

void addInvoiceListCommand(CommandSyntax& syntax, SubcommandSyntax invoice) {
    auto command = invoice.subcommand("list", "Lists the invoices, newest first");
    auto filter = std::make_shared<InvoiceFilter>(InvoiceFilter::all);
    addChoice(command, "--status", filter,
              {{"all", InvoiceFilter::all},
               {"open", InvoiceFilter::open},
               {"overdue", InvoiceFilter::overdue},
               {"paid", InvoiceFilter::paid}},
              "Which of them: ")
        .typeName("STATUS");
    syntax.runs(
        command,
        [filter](CommandEnvironment& environment, CommandOutput& output) {
            list(*filter, environment, output);
        },
        Drawing::countsPages);
}

}  // namespace elmworth
