// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "rescue/SnapshotCompletion.h"

#include <algorithm>
#include <map>

#include "platform/Text.h"
#include "records/LibrarySchema.h"
#include "rescue/DetachedFields.h"
#include "rescue/RecordRules.h"

namespace elmworth {

namespace {

std::int64_t secondOf(Instant instant) {
    return std::chrono::floor<std::chrono::seconds>(instant).time_since_epoch().count();
}

bool isNamed(const std::string& a, const std::string& b) {
    return canonical(a) == canonical(b);
}

/// The one with the most votes; none when nobody voted.
PersistentID winner(const std::map<PersistentID, std::size_t>& votes) {
    const auto best =
        std::max_element(votes.begin(), votes.end(),
                         [](const auto& a, const auto& b) { return a.second < b.second; });
    return best == votes.end() ? PersistentID{} : best->first;
}

/// The record of `source` as one of the identity `id`, its relationships still to be set.
template <class T>
Ref<T> copyAs(const PersistentID& id, const T& source) {
    auto record = std::make_shared<T>(id.isNil() ? PersistentID::make() : id);
    for (const auto& field : T::schema().fields) {
        if (!field.target) field.write(*record, field.read(source));
    }
    return record;
}

template <class T>
std::size_t rebuiltAmong(const RecordsByID<T>& records, const Salvaged& found) {
    return static_cast<std::size_t>(
        std::count_if(records.begin(), records.end(),
                      [&](const auto& item) { return found.rebuilt.contains(item.first); }));
}

template <class T>
bool isLost(const std::optional<PersistentID>& id, const RecordsByID<T>& records) {
    return id && !records.contains(*id);
}

}  // namespace

SnapshotCompletion::SnapshotCompletion(Salvaged& found) : found_(found) {
    counts_[0].fromLibrary = found.clients.size();
    counts_[1].fromLibrary = found.projects.size();
    counts_[2].fromIndexes = rebuiltAmong(found.entries, found);
    counts_[2].fromLibrary = found.entries.size() - counts_[2].fromIndexes;
    counts_[3].fromIndexes = rebuiltAmong(found.invoices, found);
    counts_[3].fromLibrary = found.invoices.size() - counts_[3].fromIndexes;
}

bool SnapshotCompletion::needsSnapshot() const {
    const auto lacks = [&](const auto& item) {
        return isLost(item.second->client.id(), found_.clients);
    };
    return found_.isIncomplete() || !found_.rebuilt.empty() ||
           std::any_of(found_.projects.begin(), found_.projects.end(), lacks) ||
           std::any_of(found_.invoices.begin(), found_.invoices.end(), lacks) ||
           std::any_of(found_.entries.begin(), found_.entries.end(), [&](const auto& item) {
               return isLost(item.second->project.id(), found_.projects) ||
                      isLost(item.second->invoice.id(), found_.invoices);
           });
}

void SnapshotCompletion::addSnapshot(UnitOfWork& snapshot) {
    indexEntries();
    for (auto& entry : snapshot.fetch<TimeEntry>({.sortBy = {sortedBy<&TimeEntry::start>()}})) {
        if (const auto project = entry->project.id())
            snapshotEntries_[*project].push_back(std::move(entry));
    }
    // Time tells best what is what: names may have been changed since.
    for (const auto& project : snapshot.fetch<Project>()) {
        const auto id = matchProject(*project, snapshotEntries_[project->id()]);
        if (!id.isNil()) projects_[project->id()] = id;
    }
    addClients(snapshot);
    addProjects(snapshot);
    addInvoices(snapshot);
    addEntries(snapshot);
}

void SnapshotCompletion::indexEntries() {
    for (const auto& [id, entry] : found_.entries) {
        entriesByStart_.emplace(secondOf(entry->start), entry.get());
        busy_.emplace_back(entry->start, entry->end->value_or(latestISO8601));
    }
    for (const auto& [id, invoice] : found_.invoices)
        invoicesByNumber_.emplace(canonical(invoice->number.get()), id);
    std::sort(busy_.begin(), busy_.end());
    Instant latest = earliestISO8601;
    for (auto& [start, end] : busy_) end = latest = std::max(latest, end);
}

bool SnapshotCompletion::overlapsTime(Instant start, Instant end) const {
    const auto next = std::partition_point(busy_.begin(), busy_.end(),
                                           [&](const auto& span) { return span.first < end; });
    return next != busy_.begin() && std::prev(next)->second > start;
}

std::vector<TimeEntry*> SnapshotCompletion::entriesOf(Instant start) const {
    std::vector<TimeEntry*> entries;
    const auto [begin, end] = entriesByStart_.equal_range(secondOf(start));
    for (auto item = begin; item != end; ++item) entries.push_back(item->second);
    return entries;
}

PersistentID SnapshotCompletion::matchProject(const Project& project,
                                              const std::vector<Ref<TimeEntry>>& entries) const {
    std::map<PersistentID, std::size_t> votes;
    for (const auto& entry : entries) {
        for (const auto* same : entriesOf(entry->start)) {
            if (const auto voted = same->project.id()) ++votes[*voted];
        }
    }
    if (!votes.empty()) return winner(votes);
    for (const auto& [id, other] : found_.projects) {
        if (!isNamed(other->name, project.name) || !other->client.id()) continue;
        const auto owner = found_.clients.find(*other->client.id());
        if (owner != found_.clients.end() && isNamed(owner->second->name, project.client->name))
            return id;
    }
    return {};
}

PersistentID SnapshotCompletion::matchClient(const Client& client) const {
    std::map<PersistentID, std::size_t> votes;
    const auto vote = [&](const auto& records, const PersistentID& id) {
        const auto record = records.find(id);
        if (record != records.end() && record->second->client.id())
            ++votes[*record->second->client.id()];
    };
    for (const auto& project : client.projects()) {
        const auto match = projects_.find(project->id());
        if (match != projects_.end()) vote(found_.projects, match->second);
    }
    for (const auto& invoice : client.invoices()) vote(found_.invoices, matchInvoice(*invoice));
    if (!votes.empty()) return winner(votes);
    for (const auto& [id, other] : found_.clients) {
        if (isNamed(other->name, client.name)) return id;
    }
    return {};
}

PersistentID SnapshotCompletion::matchInvoice(const Invoice& invoice) const {
    const auto known = invoicesByNumber_.find(canonical(invoice.number.get()));
    if (known != invoicesByNumber_.end()) return known->second;
    std::map<PersistentID, std::size_t> votes;
    for (const auto& entry : invoice.entries()) {
        for (const auto* same : entriesOf(entry->start)) {
            if (isLost(same->invoice.id(), found_.invoices)) ++votes[*same->invoice.id()];
        }
    }
    return winner(votes);
}

void SnapshotCompletion::addClients(UnitOfWork& snapshot) {
    for (const auto& client : snapshot.fetch<Client>()) {
        const auto id = matchClient(*client);
        if (id.isNil() && !found_.isIncomplete()) continue;
        if (found_.clients.contains(id)) {
            clients_[client->id()] = id;
            continue;
        }
        const auto copy = copyAs(id, *client);
        clients_[client->id()] = copy->id();
        found_.clients[copy->id()] = copy;
        if (id.isNil()) tellOfAddition(*copy);
        ++counts_[0].fromSnapshot;
    }
}

void SnapshotCompletion::addProjects(UnitOfWork& snapshot) {
    for (const auto& project : snapshot.fetch<Project>()) {
        const auto match = projects_.find(project->id());
        const auto id = match == projects_.end() ? PersistentID{} : match->second;
        if (found_.projects.contains(id) || (id.isNil() && !found_.isIncomplete())) continue;
        const auto copy = copyAs(id, *project);
        projects_[project->id()] = copy->id();
        const auto owner = clients_.find(project->client.id().value_or(PersistentID{}));
        if (owner != clients_.end()) setField(*copy, "client", owner->second);
        found_.projects[copy->id()] = copy;
        if (id.isNil()) tellOfAddition(*copy);
        ++counts_[1].fromSnapshot;
    }
}

void SnapshotCompletion::addInvoices(UnitOfWork& snapshot) {
    for (const auto& invoice : snapshot.fetch<Invoice>()) {
        const auto id = matchInvoice(*invoice);
        const bool isRebuilt = found_.rebuilt.contains(id);
        if (id.isNil() && !found_.isIncomplete()) continue;
        if (!isRebuilt && found_.invoices.contains(id)) {
            invoices_[invoice->id()] = id;
            continue;
        }
        const auto copy = copyAs(id, *invoice);
        invoices_[invoice->id()] = copy->id();
        const auto owner = clients_.find(invoice->client.id().value_or(PersistentID{}));
        if (owner != clients_.end()) setField(*copy, "client", owner->second);
        found_.invoices[copy->id()] = copy;
        if (id.isNil()) tellOfAddition(*copy);
        ++counts_[3].fromSnapshot;
        if (!isRebuilt) continue;
        found_.rebuilt.erase(id);
        --counts_[3].fromIndexes;
    }
}

void SnapshotCompletion::addEntries(UnitOfWork& snapshot) {
    for (const auto& project : snapshot.fetch<Project>()) {
        for (const auto& entry : snapshotEntries_[project->id()]) addEntry(*entry);
    }
    if (overlapping_ == 0) return;
    found_.remarks.push_back(std::to_string(overlapping_) +
                             " entries of the snapshot overlap time that the library has, and were "
                             "left out.");
}

void SnapshotCompletion::addEntry(const TimeEntry& entry) {
    if (addTo(entriesOf(entry.start), entry) || !found_.isIncomplete()) return;
    const auto project = projects_.find(*entry.project.id());
    if (project == projects_.end()) return;
    if (overlapsTime(entry.start, *entry.end.get())) {
        ++overlapping_;
        return;
    }
    const auto copy = copyAs(PersistentID{}, entry);
    setField(*copy, "project", project->second);
    const auto invoice = invoices_.find(entry.invoice.id().value_or(PersistentID{}));
    if (invoice != invoices_.end()) setField(*copy, "invoice", invoice->second);
    found_.entries[copy->id()] = copy;
    ++counts_[2].fromSnapshot;
    tellOfAddition(*copy);
}

void SnapshotCompletion::tellOfAddition(const Record& record) {
    const auto& schema = record.recordSchema();
    std::vector<Value> values;
    for (const auto& field : schema.fields) values.push_back(field.read(record));
    found_.remarks.push_back(recordTitle(schema, values) +
                             " comes from the snapshot: look whether you had renamed or deleted it "
                             "since.");
}

/// Whether the library has the entry. Of what only the indexes know, the snapshot has the rest.
bool SnapshotCompletion::addTo(const std::vector<TimeEntry*>& same, const TimeEntry& entry) {
    for (auto* known : same) {
        if (!found_.rebuilt.contains(known->id()) || !known->notes->empty()) continue;
        setField(*known, "notes", entry.notes.get());
        if (known->invoice && entry.billedRateCents.get())
            setField(*known, "billedRateCents", *entry.billedRateCents.get());
        break;
    }
    return !same.empty();
}

}  // namespace elmworth
