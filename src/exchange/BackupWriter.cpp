// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/BackupWriter.h"

#include "platform/ISO8601.h"
#include "platform/Text.h"

namespace elmworth {

namespace {

rapidjson::SizeType length(std::string_view text) {
    return static_cast<rapidjson::SizeType>(text.size());
}

}  // namespace

void BackupWriter::key(std::string_view name) {
    writer_.Key(name.data(), length(name));
}

void BackupWriter::text(std::string_view name, std::string_view value) {
    key(name);
    if (isUTF8(value)) {
        writer_.String(value.data(), length(value));
    } else {
        ++repairedTexts_;
        const std::string valid = validUTF8(value);
        writer_.String(valid.data(), length(valid));
    }
}

void BackupWriter::number(std::string_view name, std::int64_t value) {
    key(name);
    writer_.Int64(value);
}

void BackupWriter::flag(std::string_view name, bool value) {
    key(name);
    writer_.Bool(value);
}

void BackupWriter::date(std::string_view name, Instant value) {
    text(name, formatISO8601(clampedToISO8601(value)));
}

// In every object the keys stand in the order of their letters.

void BackupWriter::begin() {
    writer_.SetIndent(' ', 2);
    writer_.StartObject();
    key("clients");
    writer_.StartArray();
}

void BackupWriter::beginClient(const ClientDTO& client) {
    writer_.StartObject();
    text("address", client.address);
    text("currencyCode", client.currencyCode);
    if (client.dueDays) number("dueDays", *client.dueDays);
    text("email", client.email);
    number("hourlyRateCents", client.hourlyRateCents);
    text("name", client.name);
    key("projects");
    writer_.StartArray();
}

void BackupWriter::endClient(const ClientDTO& client) {
    writer_.EndArray();
    if (client.taxBasisPoints) number("taxBasisPoints", *client.taxBasisPoints);
    writer_.EndObject();
}

void BackupWriter::beginProject(const ProjectDTO& project) {
    writer_.StartObject();
    if (project.budgetHours) number("budgetHours", *project.budgetHours);
    text("colorHex", project.colorHex);
    key("entries");
    writer_.StartArray();
}

void BackupWriter::endProject(const ProjectDTO& project) {
    writer_.EndArray();
    flag("isArchived", project.isArchived);
    text("name", project.name);
    if (project.rateOverrideCents) number("rateOverrideCents", *project.rateOverrideCents);
    writer_.EndObject();
}

void BackupWriter::entry(const EntryDTO& entry) {
    writer_.StartObject();
    if (entry.billedRateCents) number("billedRateCents", *entry.billedRateCents);
    if (entry.end) date("end", *entry.end);
    if (entry.invoiceNumber) text("invoiceNumber", *entry.invoiceNumber);
    text("notes", entry.notes);
    date("start", entry.start);
    writer_.EndObject();
}

void BackupWriter::beginInvoices(Instant exportedAt) {
    writer_.EndArray();
    date("exportedAt", exportedAt);
    key("invoices");
    writer_.StartArray();
}

void BackupWriter::invoice(const InvoiceDTO& invoice) {
    writer_.StartObject();
    if (invoice.business) {
        key("business");
        profile(*invoice.business);
    }
    text("client", invoice.client);
    if (invoice.clientIndex) number("clientIndex", *invoice.clientIndex);
    text("currencyCode", invoice.currencyCode);
    date("dueDate", invoice.dueDate);
    date("issueDate", invoice.issueDate);
    text("notes", invoice.notes);
    text("number", invoice.number);
    if (invoice.paidAt) date("paidAt", *invoice.paidAt);
    date("periodEnd", invoice.periodEnd);
    date("periodStart", invoice.periodStart);
    number("roundingMinutes", invoice.roundingMinutes);
    if (invoice.showsEntryDetails) flag("showsEntryDetails", *invoice.showsEntryDetails);
    text("status", invoice.status);
    number("taxRateBasisPoints", invoice.taxRateBasisPoints);
    writer_.EndObject();
}

void BackupWriter::profile(const BusinessProfile& profile) {
    writer_.StartObject();
    text("address", profile.address);
    number("defaultDueDays", profile.defaultDueDays);
    number("defaultTaxBasisPoints", profile.defaultTaxBasisPoints);
    text("email", profile.email);
    text("invoicePrefix", profile.invoicePrefix);
    text("name", profile.name);
    number("nextInvoiceNumber", profile.nextInvoiceNumber);
    number("numberingYear", profile.numberingYear);
    text("paperSize", rawValue(profile.paperSize));
    text("paymentInstructions", profile.paymentInstructions);
    flag("resetNumberingYearly", profile.resetNumberingYearly);
    number("roundingMinutes", profile.roundingMinutes);
    text("taxID", profile.taxID);
    text("taxLabel", profile.taxLabel);
    writer_.EndObject();
}

void BackupWriter::end(const BusinessProfile& businessProfile, std::int64_t version) {
    writer_.EndArray();
    key("profile");
    profile(businessProfile);
    number("version", version);
    writer_.EndObject();
    stream_.Put('\n');
    stream_.Flush();
}

}  // namespace elmworth
