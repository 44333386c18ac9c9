// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "records/Client.h"
#include "store/UnitOfWork.h"
#include "tracking/TimerService.h"

namespace elmworth {

/// Whether `client` must stay: it has invoices, or time of its projects is on one. Throws
/// StoreError.
[[nodiscard]] bool hasInvoices(const Client& client);

/// Deletes `client` with its projects and their entries and saves. A timer on one of them stops
/// first. A failed save stays pending. Requires `hasInvoices` to be false.
void deleteClient(const Ref<Client>& client, UnitOfWork& context, TimerService& timer);

}  // namespace elmworth
