// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/InvoiceOutput.h"

#include <utility>

#include "command/RecordFields.h"
#include "command/TextTable.h"
#include "invoicing/InvoicePages.h"
#include "platform/DateFormatter.h"
#include "platform/DurationFormat.h"
#include "platform/MoneyFormat.h"
#include "records/Client.h"

namespace elmworth {

namespace {

void writeLine(JSONOutput& json, const InvoiceCalculator::Line& line) {
    json.beginObject();
    json.field("projectName", line.projectName);
    json.field("seconds", line.seconds);
    json.field("rateCents", line.rateCents);
    json.field("amountCents", line.amountCents);
    json.key("entries");
    json.beginArray();
    for (const auto& entry : line.entries) {
        json.beginObject();
        json.field("date", entry.date);
        json.field("notes", entry.notes);
        json.field("seconds", entry.seconds);
        json.endObject();
    }
    json.endArray();
    json.endObject();
}

std::string clientName(const Invoice& invoice) {
    const auto& client = invoice.client.get();
    return client ? client->name.get() : std::string();
}

InvoiceFormats formatsOf(const CommandEnvironment& environment) {
    return {environment.locale, environment.moneyLocale, environment.calendar.zoneID()};
}

}  // namespace

void writeTotals(JSONOutput& json, const InvoiceCalculator::Totals& totals, bool withLines) {
    if (withLines) {
        json.key("lines");
        json.beginArray();
        for (const auto& line : totals.lines) writeLine(json, line);
        json.endArray();
    }
    json.field("subtotalCents", totals.subtotalCents);
    json.field("taxCents", totals.taxCents);
    json.field("totalCents", totals.totalCents);
}

InvoiceRenderModel renderModel(const Invoice& invoice, const CommandEnvironment& environment,
                               LogoImage logo) {
    return makeInvoiceRenderModel(invoice, environment.profiles.profile(), formatsOf(environment),
                                  std::move(logo));
}

int pageCount(const Invoice& invoice, CommandEnvironment& environment) {
    const LogoImage logo = environment.painter ? environment.painter->loadLogo() : nullptr;
    return static_cast<int>(pages(renderModel(invoice, environment, logo)).size());
}

void writeInvoice(JSONOutput& json, const Invoice& invoice,
                  const std::function<PricedInvoice()>& price, CommandEnvironment& environment,
                  bool withLines) {
    json.beginObject();
    writeFields(json, invoice,
                {{"client", clientName(invoice)},
                 {"status", std::string(rawValue(invoice.status()))},
                 {"currencyCode", invoice.effectiveCurrencyCode()}});
    json.field("isOverdue", invoice.isOverdue(environment.now(), environment.calendar));
    try {
        const auto priced = price();
        writeTotals(json, priced.totals, withLines);
        json.field("pages", priced.pages);
    } catch (const FiguresError& error) {
        json.field("error", error.what());
    }
    json.endObject();
}

std::string totalsText(const InvoiceCalculator::Totals& totals, const std::string& currencyCode,
                       const Locale& locale) {
    const auto money = [&](std::int64_t cents) { return formatCents(cents, currencyCode, locale); };
    using enum TextTable::Alignment;
    TextTable table({{"PROJECT"}, {"HOURS", right}, {"RATE", right}, {"AMOUNT", right}});
    for (const auto& line : totals.lines) {
        table.add({line.projectName, formatDecimalHours(line.seconds), money(line.rateCents),
                   money(line.amountCents)});
    }
    table.add({"Subtotal", "", "", money(totals.subtotalCents)});
    table.add({"Tax", "", "", money(totals.taxCents)});
    table.add({"Total", "", "", money(totals.totalCents)});
    return table.text();
}

std::string totalText(const Invoice& invoice,
                      const std::function<InvoiceCalculator::Totals()>& totals,
                      const Locale& locale) {
    try {
        return formatCents(totals().totalCents, invoice.effectiveCurrencyCode(), locale);
    } catch (const FiguresError& error) {
        return error.what();
    }
}

std::string statusText(const Invoice& invoice, const CommandEnvironment& environment) {
    if (invoice.isOverdue(environment.now(), environment.calendar)) return "Overdue";
    return std::string(label(invoice.status()));
}

void printInvoice(const Invoice& invoice, CommandEnvironment& environment, CommandOutput& output) {
    if (output.isJSON()) {
        JSONOutput json;
        const auto price = [&]() -> PricedInvoice {
            return {InvoiceCalculator::totals(invoice), pageCount(invoice, environment)};
        };
        writeInvoice(json, invoice, price, environment, true);
        output.text += json.document();
        return;
    }
    const auto model =
        makeInvoiceHead(invoice, environment.profiles.profile(), formatsOf(environment), nullptr);
    output.line(model.number + " · " + clientName(invoice) + " · " +
                statusText(invoice, environment));
    output.line("Issued " + model.issueDate + " · Due " + model.dueDate);
    output.line("Period " + model.period + "\n");
    try {
        output.text += totalsText(InvoiceCalculator::totals(invoice),
                                  invoice.effectiveCurrencyCode(), environment.moneyLocale);
    } catch (const FiguresError& error) {
        output.line(error.what());
    }
    if (!model.notes.empty()) output.line("\n" + model.notes);
}

}  // namespace elmworth
