// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/BackupWalk.h"

#include <algorithm>

#include "platform/Collator.h"

namespace elmworth {

namespace {

/// Takes the fields of `record` as they are.
void take(const Record& record, BackupObject& object) {
    const auto& keys = object.shape->keys;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (keys[i].field) object.values[i] = keys[i].field->read(record);
    }
}

}  // namespace

// What a document says in another way than the record does.

const BackupObject& BackupWalk::entryObject(const TimeEntry& entry) {
    take(entry, entry_);
    const auto invoice = entry.invoice.id();
    const auto number = invoice ? invoiceNumbers_.find(*invoice) : invoiceNumbers_.end();
    entry_["invoiceNumber"] = number == invoiceNumbers_.end() ? Value() : Value(number->second);
    return entry_;
}

BackupObject BackupWalk::invoiceObject(const Invoice& invoice) const {
    BackupObject object(backupShapes().invoice);
    take(invoice, object);
    object["currencyCode"] = invoice.effectiveCurrencyCode();
    if (const auto& client = invoice.client.get()) {
        object["client"] = client->name.get();
        const auto found = clientIndexes_.find(client->id());
        if (found != clientIndexes_.end()) object["clientIndex"] = found->second;
    }
    return object;
}

bool BackupWalk::Before::operator()(const Place& a, const Place& b) const {
    const int order = localizedStandardCompare(a.first, b.first);
    return order != 0 ? order < 0 : a.second < b.second;
}

BackupWalk::BackupWalk(UnitOfWork& context, const BusinessProfile& profile, Instant now,
                       BackupWriter& writer)
    : context_(context), profile_(profile), now_(now), writer_(writer) {}

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
    writer_.begin();
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
    take(client, client_);
    writer_.beginList(client_);
    ++counts_.clients;
    next_ = &BackupWalk::beginProject;
}

void BackupWalk::beginProject() {
    if (nextProject_ == projects_.size()) {
        writer_.endList(client_);
        projects_.clear();
        next_ = &BackupWalk::beginClient;
        return;
    }
    take(*projects_[nextProject_], project_);
    writer_.beginList(project_);
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
            writer_.write(entryObject(entry));
            ++counts_.entries;
            if (lastStart_ != entry.start.get()) countAtLastStart_ = 0;
            lastStart_ = entry.start;
            ++countAtLastStart_;
        });
    if (seen == limit) return;
    writer_.endList(project_);
    ++nextProject_;
    next_ = &BackupWalk::beginProject;
}

void BackupWalk::beginInvoices() {
    writer_.beginInvoices(now_);
    nextInvoice_ = invoices_.begin();
    next_ = &BackupWalk::visitInvoices;
}

void BackupWalk::visitInvoices() {
    constexpr std::size_t invoicesPerStep = entriesPerStep / 8;
    for (std::size_t i = 0; i < invoicesPerStep && nextInvoice_ != invoices_.end(); ++i) {
        const auto invoice = context_.record<Invoice>((nextInvoice_++)->second);
        if (!invoice) continue;
        writer_.write(invoiceObject(*invoice));
        ++counts_.invoices;
    }
    if (nextInvoice_ == invoices_.end()) next_ = &BackupWalk::end;
}

void BackupWalk::end() {
    writer_.end(profile_, Backup{}.version);
    next_ = nullptr;
}

}  // namespace elmworth
