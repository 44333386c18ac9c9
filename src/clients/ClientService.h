// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <vector>

#include "clients/ClientForm.h"
#include "clients/TimerCalls.h"
#include "records/Project.h"
#include "store/UndoHistory.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// Whether `client` must stay: it has invoices, or time of its projects is on one. Throws
/// StoreError.
[[nodiscard]] bool hasInvoices(const Client& client);

/// What a person does to clients. Each change is a named step of `history`, saved or not done at
/// all: throws Refused with the sentence to show, or StoreError.
class ClientService {
 public:
    ClientService(UnitOfWork& context, UndoHistory& history, TimerCalls timer, Clock now);

    Ref<Client> add(const ClientForm& form);
    /// Adds `client`, which is in no library yet.
    void add(const Ref<Client>& client);

    void edit(const Ref<Client>& client, const ClientForm& form);
    /// Runs `change` as one step.
    void edit(const Ref<Client>& client, const std::function<void(Client&)>& change);

    /// Deletes `client` with its projects and their entries; a timer on one of them stops first.
    /// Refused while `hasInvoices`.
    void remove(const Ref<Client>& client);

 private:
    UnitOfWork& context_;
    UndoHistory& history_;
    TimerCalls timer_;
    Clock now_;
};

}  // namespace elmworth
