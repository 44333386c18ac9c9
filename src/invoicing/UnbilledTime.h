// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <unordered_map>
#include <vector>

#include "invoicing/InvoiceCalculator.h"
#include "platform/Instant.h"
#include "records/Client.h"
#include "records/Project.h"
#include "store/UnitOfWork.h"

namespace elmworth {

/// Finished time that is on no invoice. `cents` prices the entries one by one at full length,
/// before an invoice's rounding: an estimate, which stays at the limits of 64 bits.
struct UnbilledTime {
    double seconds = 0;
    std::int64_t cents = 0;

    UnbilledTime& operator+=(const UnbilledTime& other) {
        seconds += other.seconds;
        cents = InvoiceCalculator::limitedSum(cents, other.cents);
        return *this;
    }
};

/// The unbilled time of one project, at the rates that hold now, by an index of its unbilled
/// entries and without records. `visit` is told each of them and fetches nothing. Throws
/// StoreError.
[[nodiscard]] UnbilledTime unbilledTime(
    UnitOfWork& context, const Ref<Project>& project,
    const std::function<void(const PersistentID& entry)>& visit = {});

using UnbilledByProject = std::unordered_map<PersistentID, UnbilledTime>;

/// The unbilled time of each project that has any, by the project's identity. Throws StoreError.
[[nodiscard]] UnbilledByProject unbilledTimeByProject(UnitOfWork& context);

/// A client with what its projects, archived ones too, hold to be billed.
struct ClientSummary {
    Ref<Client> client;
    std::int64_t activeProjects = 0;  ///< those that are not archived
    UnbilledTime unbilled;
};

/// `unbilled` is that of the whole library.
[[nodiscard]] ClientSummary clientSummary(const Ref<Client>& client,
                                          const UnbilledByProject& unbilled);

/// All clients by name. Throws StoreError.
[[nodiscard]] std::vector<ClientSummary> allClientSummaries(UnitOfWork& context);

/// When the first of the client's finished, unbilled entries started, of those that did before
/// `before`; absent without any. By an index of unbilled entries and without records. Throws
/// StoreError.
[[nodiscard]] std::optional<Instant> firstUnbilledStart(UnitOfWork& context,
                                                        const Ref<Client>& client, Instant before);

}  // namespace elmworth
