// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/BackupExporter.h"

#include <algorithm>
#include <unordered_map>

#include "core/Client.h"
#include "core/Invoice.h"
#include "core/Project.h"
#include "core/TimeEntry.h"
#include "platform/Text.h"

namespace elmworth::BackupExporter {

namespace {

using InvoiceNumbers = std::unordered_map<PersistentID, std::string>;

template <class T, auto Name>
std::vector<Ref<T>> allInOrder(ModelContext& context) {
    return context.fetch(FetchDescriptor<T>{
        .sortBy = {sortedBy<Name>(SortOrder::forward, SortComparison::localizedStandard)}});
}

EntryDTO makeEntry(const TimeEntry& entry, const InvoiceNumbers& numbers) {
    EntryDTO dto{entry.start, entry.end, entry.notes, std::nullopt, entry.billedRateCents};
    if (const auto invoice = entry.invoice.id()) {
        const auto found = numbers.find(*invoice);
        if (found != numbers.end()) dto.invoiceNumber = found->second;
    }
    return dto;
}

ProjectDTO makeProject(ModelContext& context, const Ref<Project>& project,
                       const InvoiceNumbers& numbers) {
    ProjectDTO dto{project->name,       project->colorHex,    project->rateOverrideCents,
                   project->isArchived, project->budgetHours, {}};
    context.forEach<TimeEntry>(
        {.predicate = key<&TimeEntry::project>() == project,
         .sortBy = {sortedBy<&TimeEntry::start>()}},
        [&](const TimeEntry& entry) { dto.entries.push_back(makeEntry(entry, numbers)); });
    return dto;
}

ClientDTO makeClient(ModelContext& context, const Ref<Client>& client,
                     const InvoiceNumbers& numbers) {
    ClientDTO dto{client->name,
                  client->email,
                  client->address,
                  client->currencyCode,
                  client->hourlyRateCents,
                  client->dueDays,
                  client->taxBasisPoints,
                  {}};
    auto projects = client->projects();
    std::stable_sort(projects.begin(), projects.end(),
                     [](const auto& a, const auto& b) { return a->name.get() < b->name.get(); });
    for (const auto& project : projects) {
        dto.projects.push_back(makeProject(context, project, numbers));
    }
    return dto;
}

/// The profile frozen on an invoice; absent when it cannot be read even where damaged bytes, which
/// `repaired` counts as one text, stand with U+FFFD.
std::optional<BusinessProfile> frozenProfile(const std::string& json, std::size_t& repaired) {
    if (isUTF8(json)) return decodeProfile(json);
    auto profile = decodeProfile(validUTF8(json));
    if (profile) ++repaired;
    return profile;
}

InvoiceDTO makeInvoice(const Invoice& invoice,
                       const std::unordered_map<PersistentID, std::int64_t>& clientIndexes,
                       std::size_t& repaired) {
    InvoiceDTO dto;
    dto.number = invoice.number;
    const auto& client = invoice.client.get();
    if (client) dto.client = client->name;
    dto.status = invoice.statusRaw;
    dto.currencyCode = invoice.effectiveCurrencyCode();
    dto.notes = invoice.notes;
    dto.issueDate = invoice.issueDate;
    dto.dueDate = invoice.dueDate;
    dto.periodStart = invoice.periodStart;
    dto.periodEnd = invoice.periodEnd;
    dto.taxRateBasisPoints = invoice.taxRateBasisPoints;
    dto.roundingMinutes = invoice.roundingMinutes;
    dto.paidAt = invoice.paidAt;
    dto.showsEntryDetails = invoice.showsEntryDetails.get();
    const auto& snapshot = invoice.businessSnapshot.get();
    if (snapshot) dto.business = frozenProfile(snapshot->bytes, repaired);
    if (client) {
        const auto found = clientIndexes.find(client->persistentModelID());
        if (found != clientIndexes.end()) dto.clientIndex = found->second;
    }
    return dto;
}

/// Walks the library in the order of the document. Gives how many texts had to be repaired on the
/// way, to which the writer adds its own.
template <class OnClient, class OnInvoice>
std::size_t walk(ModelContext& context, const OnClient& onClient, const OnInvoice& onInvoice) {
    const auto clients = allInOrder<Client, &Client::name>(context);
    const auto invoices = allInOrder<Invoice, &Invoice::number>(context);
    InvoiceNumbers numbers;
    for (const auto& invoice : invoices) numbers[invoice->persistentModelID()] = invoice->number;
    std::unordered_map<PersistentID, std::int64_t> clientIndexes;
    std::int64_t index = 0;
    for (const auto& client : clients) clientIndexes[client->persistentModelID()] = index++;
    for (const auto& client : clients) onClient(makeClient(context, client, numbers));
    std::size_t repaired = 0;
    for (const auto& invoice : invoices) {
        onInvoice(makeInvoice(*invoice, clientIndexes, repaired));
    }
    return repaired;
}

}  // namespace

Backup makeBackup(ModelContext& context, const BusinessProfile& profile, Instant now) {
    const CompleteReading reading(context);
    Backup backup;
    backup.exportedAt = now;
    backup.profile = profile;
    walk(
        context, [&](ClientDTO&& client) { backup.clients.push_back(std::move(client)); },
        [&](InvoiceDTO&& invoice) { backup.invoices.push_back(std::move(invoice)); });
    reading.check();
    return backup;
}

std::string encode(const Backup& backup) {
    std::string json;
    BackupWriter writer([&](std::string_view bytes) { json += bytes; });
    writer.begin();
    for (const auto& client : backup.clients) writer.client(client);
    writer.beginInvoices(backup.exportedAt);
    for (const auto& invoice : backup.invoices) writer.invoice(invoice);
    writer.end(backup.profile, backup.version);
    return json;
}

Counts write(ModelContext& context, const BusinessProfile& profile, Instant now,
             const ByteSink& sink, Progress& progress) {
    const CompleteReading reading(context);
    Counts counts;
    const std::size_t total = context.fetchCount<TimeEntry>();
    BackupWriter writer([&](std::string_view bytes) {
        progress.advance("Writing", counts.entries, total);
        sink(bytes);
    });
    writer.begin();
    bool invoicesBegun = false;
    const auto beginInvoices = [&] {
        if (!std::exchange(invoicesBegun, true)) writer.beginInvoices(now);
    };
    counts.repairedTexts = walk(
        context,
        [&](const ClientDTO& client) {
            ++counts.clients;
            counts.projects += client.projects.size();
            for (const auto& project : client.projects) counts.entries += project.entries.size();
            writer.client(client);
        },
        [&](const InvoiceDTO& invoice) {
            beginInvoices();
            ++counts.invoices;
            writer.invoice(invoice);
        });
    beginInvoices();
    reading.check();
    writer.end(profile, Backup{}.version);
    counts.repairedTexts += writer.repairedTexts();
    return counts;
}

Counts writeFile(ModelContext& context, const BusinessProfile& profile, Instant now,
                 const std::filesystem::path& file, Progress& progress, FileAccess access) {
    AtomicFile target(file, access);
    const Counts counts = write(
        context, profile, now, [&](std::string_view bytes) { target.write(bytes); }, progress);
    target.commit();
    return counts;
}

std::string repairMessage(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " text" : " texts") +
           " of the library held damaged bytes, which stand as � in the document.";
}

}  // namespace elmworth::BackupExporter
