// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/Restore.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/Text.h"
#include "records/Client.h"
#include "records/Invoice.h"
#include "records/Project.h"
#include "records/TimeEntry.h"

namespace elmworth {

namespace {

using namespace std::chrono_literals;

std::string message(RestoreError::Code code, const std::string& place) {
    if (code == RestoreError::Code::notEmpty) {
        return "Restoring needs an empty library. Delete your clients first, or restore on a fresh "
               "install.";
    }
    if (code == RestoreError::Code::profileNotWritten) {
        return "The settings file can't be written, so nothing was restored. Make its folder "
               "writable or free some space, then restore again.";
    }
    return place + ".clientIndex: a position in the list of clients can't be negative.";
}

/// Puts one document into one context, unsaved.
class Restorer {
 public:
    Restorer(const Backup& backup, UnitOfWork& context, Progress& progress)
        : backup_(backup), context_(context), progress_(progress) {
        for (const auto& client : backup.clients) {
            for (const auto& project : client.items) entryCount_ += project.items.size();
        }
    }

    /// Entries come last, when all that they point to is there, so that they need not stay in
    /// memory.
    std::int64_t run() {
        for (const auto& client : backup_.clients) addClient(client);
        for (const auto& invoice : backup_.invoices) addInvoice(invoice);
        for (const auto& [object, project] : projects_) {
            for (const auto& entry : object->items) addEntry(entry, project);
        }
        return unlinkedEntries_;
    }

    [[nodiscard]] const Client* firstClient() const {
        return clients_.empty() ? nullptr : clients_.front().get();
    }

 private:
    /// Gives the fields of `record` the values of `object`; those that the document leaves out and
    /// a record must have keep what a new one has.
    static void fill(Record& record, const BackupObject& object) {
        for (std::size_t i = 0; i < object.values.size(); ++i) {
            const auto* field = object.shape->keys[i].field;
            const bool isGiven = !std::holds_alternative<std::monostate>(object.values[i]);
            if (field && (isGiven || field->optional)) field->assign(record, object.values[i]);
        }
    }

    void addClient(const BackupObject& object) {
        const auto client = std::make_shared<Client>("");
        fill(*client, object);
        context_.insert(client);
        clients_.push_back(client);
        clientsByName_.try_emplace(canonical(client->name.get()), client);
        for (const auto& project : object.items) addProject(project, client);
    }

    void addProject(const BackupObject& object, const Ref<Client>& client) {
        const auto project = std::make_shared<Project>("", client);
        fill(*project, object);
        context_.insert(project);
        projects_.emplace_back(&object, project);
    }

    void addEntry(const BackupObject& object, const Ref<Project>& project) {
        const auto entry = std::make_shared<TimeEntry>(Instant{}, project);
        fill(*entry, object);
        if (entry->isRunning()) {
            entry->end = std::max<Instant>(entry->start.get() + 1s, backup_.exportedAt);
        }
        const auto* invoiceNumber = std::get_if<std::string>(&object["invoiceNumber"]);
        if (invoiceNumber) link(*entry, *invoiceNumber);
        context_.insert(entry);
        if (++entries_ % entriesBetweenSpills == 0) context_.flushInserts();
        progress_.advance("Restoring", entries_, entryCount_);
    }

    [[nodiscard]] Ref<Client> findClient(const BackupObject& invoice) const {
        const auto* index = std::get_if<std::int64_t>(&invoice["clientIndex"]);
        if (index && static_cast<std::size_t>(*index) < clients_.size()) {
            return clients_[static_cast<std::size_t>(*index)];
        }
        const auto found = clientsByName_.find(canonical(std::get<std::string>(invoice["client"])));
        return found == clientsByName_.end() ? nullptr : found->second;
    }

    /// Numbers are unique: of two invoices with the same one the later takes the earlier's place.
    void addInvoice(const BackupObject& object) {
        const auto client = findClient(object);
        if (!client) return;
        const auto invoice = std::make_shared<Invoice>("");
        fill(*invoice, object);
        invoice->client = client;
        auto& place = invoices_[canonical(invoice->number.get())];
        if (place) context_.deleteRecord(place);
        context_.insert(place = invoice);
    }

    /// An entry whose invoice is not there becomes plain unbilled time, to be invoiced again.
    void link(TimeEntry& entry, const std::string& invoiceNumber) {
        const auto found = invoices_.find(canonical(invoiceNumber));
        if (found != invoices_.end()) {
            entry.invoice = found->second;
        } else {
            entry.billedRateCents = std::nullopt;
            ++unlinkedEntries_;
        }
    }

    static constexpr std::size_t entriesBetweenSpills = 4096;

    const Backup& backup_;
    UnitOfWork& context_;
    Progress& progress_;
    std::vector<Ref<Client>> clients_;
    // By names and numbers in canonical form.
    std::unordered_map<std::string, Ref<Client>> clientsByName_;
    std::unordered_map<std::string, Ref<Invoice>> invoices_;
    std::vector<std::pair<const BackupObject*, Ref<Project>>> projects_;
    std::size_t entries_ = 0;
    std::size_t entryCount_ = 0;
    std::int64_t unlinkedEntries_ = 0;
};

void refuseNegativeIndexes(const Backup& backup) {
    for (std::size_t i = 0; i < backup.invoices.size(); ++i) {
        const auto* index = std::get_if<std::int64_t>(&backup.invoices[i]["clientIndex"]);
        if (index && *index < 0) {
            throw RestoreError(RestoreError::Code::negativeClientIndex,
                               "invoices[" + std::to_string(i) + "]");
        }
    }
}

/// Loads `backup` and saves. `beforeSave` gets the first client that the library will hold; null
/// when it will hold none.
RestoreResult load(const Backup& backup, UnitOfWork& context, Progress& progress,
                   const std::function<void(const Client*)>& beforeSave) {
    if (context.fetchCount<Client>() > 0 || context.fetchCount<TimeEntry>() > 0) {
        throw RestoreError(RestoreError::Code::notEmpty);
    }
    refuseNegativeIndexes(backup);
    try {
        Restorer restorer(backup, context, progress);
        const std::int64_t unlinked = restorer.run();
        beforeSave(restorer.firstClient());
        context.save(progress);
        return {backup.profile, unlinked};
    } catch (...) {  // a lack of memory, too
        context.rollback();
        throw;
    }
}

}  // namespace

RestoreError::RestoreError(Code code, const std::string& place)
    : std::runtime_error(message(code, place)), code_(code) {}

RestoreResult restore(const Backup& backup, UnitOfWork& context, Progress& progress) {
    return load(backup, context, progress, [](const Client* /*first*/) {});
}

// The profile is durable beside the present one before the library is, and takes its place after
// it. A save that fails may be durable all the same: the next start looks at what the library
// holds.

RestoreResult restore(const Backup& backup, UnitOfWork& context, ProfileStore& profiles,
                      Progress& progress) {
    auto result = load(backup, context, progress, [&](const Client* first) {
        const std::string evidence = first ? first->id().string() : "";
        if (!profiles.announce(backup.profile, evidence)) {
            throw RestoreError(RestoreError::Code::profileNotWritten);
        }
    });
    profiles.setProfile(result.profile);
    // What was announced is there now, unless it was there before.
    profiles.settle([](std::string_view /*evidence*/) { return false; });
    return result;
}

void finishRestore(UnitOfWork& context, ProfileStore& profiles) {
    try {
        profiles.settle([&](std::string_view evidence) {
            const auto clients = context.fetch<Client>();
            return std::any_of(clients.begin(), clients.end(), [&](const auto& client) {
                return client->id().string() == evidence;
            });
        });
    } catch (const StoreError&) {
        return;  // what the library holds cannot be told now, and is asked again at the next start
    }
}

std::string restoreMessage(const Backup& backup, const RestoreResult& result) {
    std::string text = "Restored " + std::to_string(backup.clients.size()) + " clients and " +
                       std::to_string(backup.invoices.size()) + " invoices.";
    if (result.unlinkedEntries >= 1) {
        text += ' ' + std::to_string(result.unlinkedEntries) +
                " billed entries couldn't be matched to an invoice and are now unbilled — check "
                "them before invoicing.";
    }
    return text;
}

}  // namespace elmworth
