// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clients/ClientService.h"

#include <algorithm>

#include "clients/ProjectService.h"
#include "records/Invoice.h"

namespace elmworth {

bool hasInvoices(const Client& client) {
    if (!client.unitOfWork()) return false;
    const CompleteReading reading(*client.unitOfWork());
    if (!client.invoices().empty()) return true;
    const auto projects = client.projects();
    reading.check();
    return std::any_of(projects.begin(), projects.end(),
                       [](const auto& project) { return hasInvoicedTime(*project); });
}

ClientService::ClientService(UnitOfWork& context, UndoHistory& history, TimerCalls timer, Clock now)
    : context_(context), history_(history), timer_(std::move(timer)), now_(std::move(now)) {}

Ref<Client> ClientService::add(const ClientForm& form) {
    auto client = std::make_shared<Client>(form.name);
    form.apply(*client);
    add(client);
    return client;
}

void ClientService::add(const Ref<Client>& client) {
    history_.perform("Add " + client->name.get(), [&] {
        client->createdAt = now_();
        context_.insert(client);
    });
}

void ClientService::edit(const Ref<Client>& client, const ClientForm& form) {
    edit(client, [&](Client& edited) { form.apply(edited); });
}

void ClientService::edit(const Ref<Client>& client, const std::function<void(Client&)>& change) {
    history_.perform("Edit " + client->name.get(), [&] { change(*client); });
}

void ClientService::remove(const Ref<Client>& client) {
    const std::string name = client->name;
    if (hasInvoices(*client)) throw Refused("Delete " + name + "'s invoices first.");
    const UndoHistory::Change deletion = [&] { context_.deleteRecord(client); };
    const auto running = timer_.running();
    const auto project = running ? running->project.get() : nullptr;
    if (project && project->client.get() == client) {
        // First, so that taking the deletion back brings no running entry back.
        history_.performAfter("Stop Timer", timer_.stop, "Delete " + name, deletion);
    } else {
        history_.perform("Delete " + name, deletion);
    }
    timer_.refresh();
}

}  // namespace elmworth
