// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/ClientDeletion.h"

#include <algorithm>

#include "records/Invoice.h"
#include "tracking/ProjectDeletion.h"

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

void deleteClient(const Ref<Client>& client, UnitOfWork& context, TimerService& timer) {
    const auto& running = timer.running();
    const auto runningProject = running ? running->project.get() : nullptr;
    if (runningProject && runningProject->client.get() == client) timer.stop();
    context.deleteRecord(client);
    context.saveQuietly();
    timer.refresh();
}

}  // namespace elmworth
