// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/BackupWalk.h"

#include <algorithm>

#include "platform/Collator.h"
#include "platform/Text.h"
#include "records/Invoice.h"
#include "records/TimeEntry.h"

namespace elmworth {

namespace {

using InvoiceNumbers = std::unordered_map<PersistentID, std::string>;

EntryDTO makeEntry(const TimeEntry& entry, const InvoiceNumbers& numbers) {
    EntryDTO dto{entry.start, entry.end, entry.notes, std::nullopt, entry.billedRateCents};
    if (const auto invoice = entry.invoice.id()) {
        const auto found = numbers.find(*invoice);
        if (found != numbers.end()) dto.invoiceNumber = found->second;
    }
    return dto;
}

ProjectDTO makeProject(const Project& project) {
    return {project.name,       project.colorHex,    project.rateOverrideCents,
            project.isArchived, project.budgetHours, {}};
}

ClientDTO makeClient(const Client& client) {
    return {client.name,
            client.email,
            client.address,
            client.currencyCode,
            client.hourlyRateCents,
            client.dueDays,
            client.taxBasisPoints,
            {}};
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
        const auto found = clientIndexes.find(client->id());
        if (found != clientIndexes.end()) dto.clientIndex = found->second;
    }
    return dto;
}

}  // namespace

bool BackupWalk::Before::operator()(const Place& a, const Place& b) const {
    const int order = localizedStandardCompare(a.first, b.first);
    return order != 0 ? order < 0 : a.second < b.second;
}

BackupWalk::BackupWalk(UnitOfWork& context, const BusinessProfile& profile, Instant now,
                       BackupReceiver& receiver)
    : context_(context), profile_(profile), now_(now), receiver_(receiver) {}

bool BackupWalk::advance() {
    if (!next_) return false;
    const CompleteReading reading(context_);
    (this->*next_)();
    reading.check();
    return next_ != nullptr;
}

void BackupWalk::begin() {
    clients_ =
        context_.fetch(Query<Client>{.sortBy = {sortedBy<&Client::name>(
                                         SortOrder::forward, SortComparison::localizedStandard)}});
    std::int64_t index = 0;
    for (const auto& client : clients_) clientIndexes_[client->id()] = index++;
    context_.forEachValues<&Invoice::number>(
        std::optional<Predicate<Invoice>>(),
        [&](const PersistentID& id, const std::string& number) { invoiceNumbers_[id] = number; });
    nextToSort_ = invoiceNumbers_.begin();
    receiver_.begin();
    next_ = &BackupWalk::sortInvoices;
}

/// A comparison of numbers as people expect it is slow: the order comes about in steps, too.
void BackupWalk::sortInvoices() {
    for (std::size_t i = 0; i < entriesPerStep && nextToSort_ != invoiceNumbers_.end(); ++i) {
        invoices_.emplace(nextToSort_->second, nextToSort_->first);
        ++nextToSort_;
    }
    if (nextToSort_ == invoiceNumbers_.end()) next_ = &BackupWalk::beginClient;
}

void BackupWalk::beginClient() {
    if (nextClient_ == clients_.size()) {
        next_ = &BackupWalk::beginInvoices;
        return;
    }
    const auto& client = *clients_[nextClient_++];
    projects_ = client.projects();
    std::stable_sort(projects_.begin(), projects_.end(),
                     [](const auto& a, const auto& b) { return a->name.get() < b->name.get(); });
    nextProject_ = 0;
    client_ = makeClient(client);
    receiver_.beginClient(client_);
    ++counts_.clients;
    next_ = &BackupWalk::beginProject;
}

void BackupWalk::beginProject() {
    if (nextProject_ == projects_.size()) {
        receiver_.endClient(client_);
        projects_.clear();
        next_ = &BackupWalk::beginClient;
        return;
    }
    project_ = makeProject(*projects_[nextProject_]);
    receiver_.beginProject(project_);
    ++counts_.projects;
    lastStart_.reset();
    countAtLastStart_ = 0;
    next_ = &BackupWalk::visitEntries;
}

/// A step goes on at the start of the last entry of the step before, behind those that began then.
void BackupWalk::visitEntries() {
    const std::size_t known = countAtLastStart_;
    const std::size_t limit = known + std::max(entriesPerStep, known);
    auto predicate = key<&TimeEntry::project>() == projects_[nextProject_];
    if (lastStart_) predicate = predicate && key<&TimeEntry::start>() >= *lastStart_;
    std::size_t seen = 0;
    context_.forEach<TimeEntry>(
        {.predicate = predicate, .sortBy = {sortedBy<&TimeEntry::start>()}, .fetchLimit = limit},
        [&](const TimeEntry& entry) {
            if (seen++ < known) return;
            receiver_.entry(makeEntry(entry, invoiceNumbers_));
            ++counts_.entries;
            if (lastStart_ != entry.start.get()) countAtLastStart_ = 0;
            lastStart_ = entry.start;
            ++countAtLastStart_;
        });
    if (seen == limit) return;
    receiver_.endProject(project_);
    ++nextProject_;
    next_ = &BackupWalk::beginProject;
}

void BackupWalk::beginInvoices() {
    receiver_.beginInvoices(now_);
    nextInvoice_ = invoices_.begin();
    next_ = &BackupWalk::visitInvoices;
}

void BackupWalk::visitInvoices() {
    constexpr std::size_t invoicesPerStep = entriesPerStep / 8;
    for (std::size_t i = 0; i < invoicesPerStep && nextInvoice_ != invoices_.end(); ++i) {
        const auto invoice = context_.record<Invoice>((nextInvoice_++)->second);
        if (!invoice) continue;
        receiver_.invoice(makeInvoice(*invoice, clientIndexes_, counts_.repairedTexts));
        ++counts_.invoices;
    }
    if (nextInvoice_ == invoices_.end()) next_ = &BackupWalk::end;
}

void BackupWalk::end() {
    receiver_.end(profile_, Backup{}.version);
    next_ = nullptr;
}

}  // namespace elmworth
