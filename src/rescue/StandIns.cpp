// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The last part of SnapshotCompletion: what nothing tells of, and what records have to keep with
// each other.

#include <algorithm>
#include <set>

#include "rescue/DetachedFields.h"
#include "rescue/RecordRules.h"
#include "rescue/SnapshotCompletion.h"

namespace elmworth {

namespace {

using namespace std::chrono_literals;

/// As the timer does at the start with what a crash has left.
constexpr auto shortestEntry = 1s;

std::string numbered(const char* what, std::size_t number) {
    return std::string(what) + ' ' + std::to_string(number);
}

}  // namespace

void SnapshotCompletion::finish() {
    standInForProjects();
    standInForInvoices();
    standInForClients();
    describeInvoices();
    tellOfLostRates();
    for (const auto& [id, client] : found_.clients) keepRules(Client::schema(), *client);
    for (const auto& [id, project] : found_.projects) keepRules(Project::schema(), *project);
    for (const auto& [id, entry] : found_.entries) keepRules(TimeEntry::schema(), *entry);
    for (const auto& [id, invoice] : found_.invoices) keepRules(Invoice::schema(), *invoice);
    keepOneTimer();
    keepNumbersApart();
}

void SnapshotCompletion::standInForProjects() {
    for (const auto& [entryID, entry] : found_.entries) {
        const auto id = entry->project.id();
        if (!id || found_.projects.contains(*id)) continue;
        const auto project = std::make_shared<Project>(*id);
        setField(*project, "name", numbered("Recovered project", ++counts_[1].unknown));
        const auto owner = found_.index.owners.find(*id);
        if (owner != found_.index.owners.end()) setField(*project, "client", owner->second);
        found_.projects[*id] = project;
        found_.remarks.push_back(project->name.get() +
                                 " stands in for a project that could not be read.");
    }
}

Ref<Client> SnapshotCompletion::unknownClient(const PersistentID& id) {
    auto client = std::make_shared<Client>(id);
    setField(*client, "name", numbered("Recovered client", ++counts_[0].unknown));
    // Rather nothing than a wrong amount.
    setField(*client, "hourlyRateCents", std::int64_t{0});
    setField(*client, "createdAt", FieldTraits<Instant>::toValue(currentInstant()));
    found_.clients[id] = client;
    found_.remarks.push_back(client->name.get() +
                             " stands in for a client that could not be read: set its rate.");
    return client;
}

void SnapshotCompletion::standInForClients() {
    for (const auto& [id, project] : found_.projects) {
        const auto client = project->client.id();
        if (client && !found_.clients.contains(*client)) unknownClient(*client);
    }
    for (const auto& [id, invoice] : found_.invoices) {
        const auto client = invoice->client.id();
        if (client && !found_.clients.contains(*client)) unknownClient(*client);
    }
    Ref<Client> shared;
    for (const auto& [id, project] : found_.projects) {
        if (project->client.id() || !project->name->starts_with("Recovered project ")) continue;
        if (!shared) shared = unknownClient(PersistentID::make());
        setField(*project, "client", shared->id());
    }
}

void SnapshotCompletion::standInForInvoices() {
    for (const auto& [entryID, entry] : found_.entries) {
        const auto id = entry->invoice.id();
        if (!id || found_.invoices.contains(*id)) continue;
        const auto invoice = std::make_shared<Invoice>(*id);
        setField(*invoice, "number", numbered("Recovered", ++counts_[3].unknown));
        found_.invoices[*id] = invoice;
        found_.rebuilt.insert(*id);
    }
}

/// The client and the period of an invoice whose row is lost are those of its time.
void SnapshotCompletion::describeInvoices() {
    for (const auto& [entryID, entry] : found_.entries) {
        const auto id = entry->invoice.id();
        if (!id || !found_.rebuilt.contains(*id)) continue;
        auto& invoice = *found_.invoices.at(*id);
        const auto project = entry->project.id();
        if (!invoice.client.id() && project) {
            const auto client = found_.projects.at(*project)->client.id();
            if (client) setField(invoice, "client", *client);
        }
        const bool isFirst = invoice.periodStart.get() >= invoice.periodEnd.get();
        const Instant end = entry->end->value_or(entry->start);
        if (isFirst || entry->start.get() < invoice.periodStart.get())
            invoice.periodStart = entry->start;
        if (isFirst || end > invoice.periodEnd.get()) invoice.periodEnd = end;
        if (invoice.issueDate.get() == Instant{}) invoice.issueDate = end;
        if (invoice.dueDate.get() < invoice.issueDate.get()) invoice.dueDate = invoice.issueDate;
    }
    for (const auto& [id, invoice] : found_.invoices) {
        if (!found_.rebuilt.contains(id)) continue;
        found_.remarks.push_back("Invoice " + invoice->number.get() +
                                 " could not be read: compare its tax, its status, its dates and "
                                 "its rates with the PDF.");
    }
}

void SnapshotCompletion::tellOfLostRates() {
    std::size_t count = 0;
    for (const auto& [id, entry] : found_.entries) {
        if (found_.rebuilt.contains(id) && entry->invoice && !entry->billedRateCents.get()) ++count;
    }
    if (count == 0) return;
    found_.remarks.push_back("Of " + std::to_string(count) +
                             " billed entries the frozen rate could not be read; they are billed "
                             "at the rate that their projects have now.");
}

/// What comes from a snapshot may break the rules, too.
void SnapshotCompletion::keepRules(const RecordSchema& schema, Record& record) {
    std::vector<Value> values;
    for (const auto& field : schema.fields) values.push_back(field.read(record));
    const auto correct = [&](std::size_t field, const Correction& correction) {
        found_.remarks.push_back(recordTitle(schema, values) + ": " + correction.problem +
                                 "; this was set right.");
        schema.fields[field].write(record, Value(correction.value));
    };
    for (std::size_t i = 0; i < schema.fields.size(); ++i) {
        if (const auto correction = correctionOf(schema, schema.fields[i], values[i]))
            correct(i, *correction);
    }
    if (schema.ordinal != TimeEntry::schema().ordinal) return;
    if (const auto entry = entryCorrectionOf(values)) correct(entry->field, entry->correction);
}

void SnapshotCompletion::keepOneTimer() {
    std::vector<TimeEntry*> running;
    for (const auto& [id, entry] : found_.entries) {
        if (entry->isRunning()) running.push_back(entry.get());
    }
    std::sort(running.begin(), running.end(),
              [](const auto* a, const auto* b) { return a->start.get() > b->start.get(); });
    for (std::size_t i = 1; i < running.size(); ++i) {
        running[i]->end = running[i]->start.get() + shortestEntry;
        found_.remarks.push_back("Entry of " + formatISO8601(running[i]->start) +
                                 " ran beside another timer, and lasts a second now.");
    }
}

void SnapshotCompletion::keepNumbersApart() {
    std::set<std::string> numbers;
    for (const auto& [id, invoice] : found_.invoices) {
        std::string number = invoice->number;
        for (int i = 2; !numbers.insert(number).second; ++i)
            number = invoice->number.get() + " (" + std::to_string(i) + ')';
        if (number == invoice->number.get()) continue;
        found_.remarks.push_back("Invoice " + invoice->number.get() +
                                 " was there twice; the second is " + number + " now.");
        invoice->number = number;
    }
}

}  // namespace elmworth
